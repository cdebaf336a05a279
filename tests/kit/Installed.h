#pragma once

#include "kit/ConfigFiles.h"
#include "kit/Create.h"

#include <QTemporaryDir>

namespace vorta::test {

/// An installation in a folder of its own that goes with the object.
class Installed {
  public:
    explicit Installed(const kit::Contents& contents = {});
    /// Another one, copied as files from a first and made usable at its place.
    static Installed copyOf(const Installed& first);

    QString home() const { return folder_->path(); }
    kit::Layout layout() const { return kit::Layout(home()); }
    QString production() const { return layout().base(kit::Environments().front().base); }
    QString postalCodes() const { return layout().base(kit::PostalCodeBase()); }
    void write(const QString& relative, const QByteArray& content) const;
    /// Writes rubbish over the indexes of production, as some other program might, of a kind that fells version 3 of
    /// the engine at the opening.
    void ruinProduction() const;

    /// One with reference data alone and one with the demonstration, made once for all tests that change nothing.
    static const Installed& plain();
    static const Installed& demonstration();

  private:
    struct Copied {};
    explicit Installed(Copied);
    std::unique_ptr<QTemporaryDir> folder_;
};

} // namespace vorta::test
