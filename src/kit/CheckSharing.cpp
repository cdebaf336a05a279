#include "kit/CheckSharing.h"

#include "base/Literals.h"
#include "firebird/BaseGuard.h"
#include "system/Files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <optional>

namespace vorta::kit {

namespace {

using system::FileState;
using State = std::optional<FileState>;

State stateOf(const QString& path) {
    return system::StateOf(path, system::Links::Themselves);
}

/// True when the owner and the group of the base, as far as they may write it, may use the other entry the same way.
bool servesAllOf(const FileState& base, const FileState& entry) {
    const unsigned use = entry.folder ? 07 : 06;
    const auto allows = [&](int shift) { return ((entry.rights >> shift) & use) == use; };
    const bool everybody = allows(0);
    const bool itsGroup = entry.group == base.group && allows(3);
    const bool itsOwner = base.owner == 0 || (entry.owner == base.owner && allows(6));
    return everybody || ((itsOwner || itsGroup) && (itsGroup || !(base.rights & system::rights::groupWrites)));
}

class Sharing {
  public:
    Sharing(const QString& what, const QString& database)
        : what_(what), base_(QFileInfo(database).canonicalFilePath()), state_(stateOf(base_)),
          folder_(QFileInfo(base_).path()), locks_(firebird::LockFolderOf(base_)) {}

    std::vector<Finding> run() {
        if (!state_)
            return {};
        checkNames();
        checkWritersOf(folder_);
        checkRights();
        checkConfiguration();
        return findings_;
    }

  private:
    void bad(const QString& words) { findings_.push_back({false, what_ + u": "_s + words}); }

    /// By another name in another folder the base has another guard, and other locks.
    void checkNames() {
        if (state_->names > 1)
            bad(u"o arquivo %1 tem %2 nomes (hard links); aberta por outro deles, a base seria destruída; apague os "
                "demais"_s.arg(base_)
                    .arg(state_->names));
    }

    void checkWritersOf(const QString& path) {
        if (const State entry = stateOf(path); entry && entry->rights & system::rights::everybodyWrites)
            bad((entry->folder ? u"a pasta %1 pode ser gravada por qualquer usuário; use: chmod o-w %1"_s
                               : u"o arquivo %1 pode ser gravado por qualquer usuário; use: chmod o-w %1"_s)
                    .arg(path));
    }

    /// Files of the base's kind in the base's hands, and nobody else's.
    void checkRights() {
        QStringList files{firebird::BaseGuard::fileOf(base_)};
        for (const QFileInfo& file : QDir(locks_).entryInfoList(QDir::Files | QDir::System | QDir::Hidden))
            files << file.filePath();
        QStringList closed;
        for (const QString& file : files) {
            checkWritersOf(file);
            if (const State entry = stateOf(file); entry && !servesAllOf(*state_, *entry))
                closed << file;
        }
        const QString words = u"quem pode gravar a base %1 nem sempre pode usar %2, e então o programa não a abre; "
                              "use: chown --reference=%1 %2 && chmod %3 %2"_s;
        if (!closed.isEmpty())
            bad(words.arg(base_, closed.join(u' '), u"--reference=%1"_s.arg(base_)));
        for (const QString& folder : QStringList{locks_} + aboveLocks()) {
            checkWritersOf(folder);
            if (const State entry = stateOf(folder); folder == locks_ && entry && !servesAllOf(*state_, *entry))
                bad(words.arg(base_, folder, u"2775"_s));
        }
    }

    /// The folder of the engine's affairs in an installation; none for a base elsewhere.
    QStringList aboveLocks() const {
        const QString above = QFileInfo(locks_).path();
        return above == folder_ ? QStringList() : QStringList{above};
    }

    void checkConfiguration() {
        for (const QString& above : aboveLocks())
            if (const QString file = above + u"/firebird.conf"_s; stateOf(file))
                bad(u"o arquivo %1 não é mais lido pelo programa, e o que foi mudado nele não vale; as ferramentas do "
                    "motor que o lessem usariam outras travas e destruiriam a base; apague-o"_s.arg(file));
    }

    QString what_, base_;
    State state_;
    QString folder_, locks_;
    std::vector<Finding> findings_;
};

} // namespace

std::vector<Finding> CheckSharing(const QString& what, const QString& database) {
    return Sharing(what, database).run();
}

} // namespace vorta::kit
