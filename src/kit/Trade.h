#pragma once

#include "kit/ConfigFiles.h"
#include "kit/Loader.h"

/// What the invented company sells: products with types, collections, stock, prices and places.
namespace vorta::kit {

struct Product {
    int id = 0;
    Hundredths price;
    bool service = false;
};

/// Loads products and their stock for company "0001" and gives them back.
std::vector<Product> LoadProducts(Loader& loader);
/// Draws a picture for the first products, a large one beside each, and further views of the very first.
void DrawProducts(const Layout& layout);

} // namespace vorta::kit
