#pragma once

#include <QString>
#include <memory>

class QFileDialog;
class QWidget;

namespace vorta::desktop {

/// A dialog that asks where a file shall be written, beginning with that name in the user's folder of documents. It
/// does not ask about a file that is there already.
std::unique_ptr<QFileDialog> MakeFileDialog(const QString& suggested, QWidget* parent);

} // namespace vorta::desktop
