#pragma once

#include <memory>

namespace vorta::bench {

/// What several cases measure on, made when the first of them runs: a filter pays only for what it measures. Copies
/// share it.
template <typename World>
class Lazy {
  public:
    using Maker = std::unique_ptr<World> (*)();
    explicit Lazy(Maker make = [] { return std::make_unique<World>(); }) : make_(make) {}

    World& operator*() const {
        if (!*world_)
            *world_ = make_();
        return **world_;
    }
    World* operator->() const { return &**this; }

  private:
    Maker make_;
    std::shared_ptr<std::unique_ptr<World>> world_ = std::make_shared<std::unique_ptr<World>>();
};

} // namespace vorta::bench
