#include "kit/Create.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "firebird/EmbeddedEngine.h"
#include "kit/ConfigFiles.h"
#include "kit/Ddl.h"
#include "kit/Demonstration.h"

#include "kit/Loader.h"
#include "kit/Pictures.h"
#include "kit/PostalCodes.h"
#include "kit/Reference.h"
#include "kit/Together.h"

#include <QDir>
#include <QFile>

#include <array>
#include <atomic>
#include <filesystem>

namespace vorta::kit {

namespace {

/// What a creation makes below the home, and takes away again when it fails.
constexpr std::array ownFolders{"config", "base", "imagens", "paginas"};

void refuseExisting(const Layout& layout) {
    for (const char* folder : ownFolders)
        if (QFile::exists(layout.home + u'/' + QLatin1StringView(folder)))
            throw RuntimeError(errorNumber::FileAlreadyExists,
                               u"Já existe uma instalação em %1; nada foi alterado"_s.arg(layout.home));
    if (layout.home.contains(u'^') || layout.home.contains(u';') || layout.home.contains(u'='))
        throw RuntimeError(errorNumber::PathRefused,
                           u"O caminho %1 não pode conter os caracteres ^ ; ="_s.arg(layout.home));
}

void makeFolder(const QString& path) {
    if (!QDir().mkpath(path))
        throw RuntimeError(errorNumber::PathRefused, u"Não foi possível criar a pasta %1"_s.arg(path));
}

void writePicture(const QString& path, const QByteArray& bitmap) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bitmap) != bitmap.size())
        throw RuntimeError(errorNumber::PathRefused, u"Não foi possível gravar %1: %2"_s.arg(path, file.errorString()));
}

/// Folders that a failed creation takes away again.
class Undo {
  public:
    explicit Undo(const Layout& layout) : layout_(layout) {}
    ~Undo() {
        if (!done_)
            for (const char* folder : ownFolders)
                QDir(layout_.home + u'/' + QLatin1StringView(folder)).removeRecursively();
    }
    void done() { done_ = true; }

  private:
    const Layout& layout_;
    bool done_ = false;
};

void define(Loader& loader, const QStringList& statements) {
    for (const QString& statement : statements)
        loader.run(statement);
    loader.commit();
}

/// A new base is filled without waiting for the disk at each page; a creation that breaks off is thrown away as a
/// whole.
void createEmpty(const QString& file, Base base) {
    firebird::DatabaseOptions options;
    options.forcedWrites = false;
    firebird::CreateDatabase(file, options);
    Loader loader(file);
    define(loader, TableStatements(data::Engine::Firebird, base));
}

void copyBase(const QString& from, const QString& to) {
    if (!QFile::copy(from, to))
        throw RuntimeError(errorNumber::PathRefused, u"Não foi possível gravar %1"_s.arg(to));
}

/// The engine builds one index at a time for a connection, so two of them take the statements in turns.
void createIndexes(const QString& file, Base base, const Progress& progress) {
    const QStringList all = IndexStatements(data::Engine::Firebird, base);
    Together together;
    std::atomic<qint64> done = 0;
    const auto build = [&](qsizetype first, const Progress& told) {
        Loader loader(file);
        for (qsizetype at = first; at < all.size(); at += 2) {
            told(u"índices"_s, done, all.size());
            loader.run(all[at]);
            ++done;
        }
        loader.commit();
    };
    together.run([&] { build(0, together.told(progress)); }, [&] { build(1, together.told()); });
}

void finish(const QString& file, Base base, const Progress& progress = {}) {
    createIndexes(file, base, progress);
    firebird::SetForcedWrites(file, true);
}

void createMainBases(const Layout& layout, const Contents& contents, const Progress& progress) {
    const QString production = layout.base(Environments().front().base);
    createEmpty(production, Base::Main);
    {
        Loader loader(production);
        LoadReferenceData(loader);
        loader.commit();
    }
    for (const Environment& environment : Environments().sliced(1)) {
        copyBase(production, layout.base(environment.base));
        finish(layout.base(environment.base), Base::Main);
    }

    LoadDemonstration(layout, production, contents, progress);
    finish(production, Base::Main, progress);
}

void createPostalCodeBase(const Layout& layout) {
    const QString file = layout.base(PostalCodeBase());
    createEmpty(file, Base::PostalCode);
    {
        Loader loader(file);
        LoadPostalCodes(loader, SampleStreets());
        loader.commit();
    }
    finish(file, Base::PostalCode);
}

namespace fs = std::filesystem;

void grant(const fs::path& place, fs::perms rights) {
    std::error_code refused;
    fs::permissions(place, rights, fs::perm_options::add, refused);
    if (refused)
        throw RuntimeError(errorNumber::PathRefused, u"Não foi possível dar ao grupo o direito sobre %1: %2"_s.arg(
                                                         QString::fromStdString(place.string()),
                                                         QString::fromLocal8Bit(refused.message().c_str())));
}

/// Everybody of the folder's group may work with the installation, whatever the mask of the user who makes it: the
/// engine writes bases and its locks, the screens write pages. What else a folder's rights say, such as handing its
/// group on to new files, stays. Configuration files have their rights already.
void openToGroup(const Layout& layout, bool ownHome) {
    constexpr fs::perms look = fs::perms::group_read | fs::perms::group_exec;
    constexpr fs::perms work = fs::perms::group_all;
    const fs::path home(layout.home.toStdString());
    if (ownHome)
        grant(home, look);
    for (const char* folder : {"config", "imagens", "imagens/detalhe"})
        grant(home / folder, look);
    for (const char* folder : {"base", "paginas", "firebird"})
        grant(home / folder, work);
    // Whoever locks, the lock belongs to the group.
    grant(home / "firebird" / "lock", work | fs::perms::set_gid);
    for (const fs::directory_entry& file : fs::directory_iterator(home / "base"))
        if (file.is_regular_file())
            grant(file.path(), fs::perms::group_read | fs::perms::group_write);
    for (const fs::directory_entry& file : fs::directory_iterator(home / "imagens"))
        if (file.is_regular_file())
            grant(file.path(), fs::perms::group_read);
}

} // namespace

void CreateInstallation(const QString& home, const Contents& contents, const Progress& progress) {
    const Layout layout(home);
    refuseExisting(layout);
    const bool ownHome = !QFile::exists(layout.home);
    Undo undo(layout);
    for (const QString& folder : {layout.config({}), layout.bases(), layout.images(), layout.largeImages(),
                                  layout.pages(), layout.home + u"/firebird/lock"_s})
        makeFolder(folder);
    writePicture(layout.images() + LinkedPicture(), LinkedBitmap());
    writePicture(layout.images() + UnlinkedPicture(), UnlinkedBitmap());
    writePicture(layout.images() + NoPhotoPicture(), NoPhotoBitmap());
    createMainBases(layout, contents, progress);
    createPostalCodeBase(layout);
    WriteConfigFiles(layout); // last: an installation is one from the moment that it can be opened
    openToGroup(layout, ownHome);
    undo.done();
}

} // namespace vorta::kit
