#include "kit/Check.h"

#include "base/CampoDelimitado.h"
#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "base/ServerLine.h"
#include "base/Text.h"
#include "data/EngineTags.h"
#include "firebird/BaseGuard.h"
#include "firebird/ConnectionText.h"
#include "kit/Bases.h"
#include "kit/CheckSharing.h"
#include "kit/Copies.h"
#include "kit/FaultWords.h"
#include "kit/Indexes.h"
#include "kit/Loader.h"
#include "kit/Upgrade.h"
#include "system/Files.h"
#include "system/ThisSystem.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSet>

namespace vorta::kit {

namespace {

bool isOpenToEverybody(const QString& path) {
    const std::optional<system::FileState> state = system::StateOf(path);
    return state && state->rights & (system::rights::everybodyReads | system::rights::everybodyWrites);
}

/// A copy that is older than this is told as a fault.
constexpr qint64 daysOfACopy = 7;

class Checker {
  public:
    Checker(const QString& home, const QDateTime& now, const Progress& progress)
        : layout_(home), places_(layout_), now_(now), progress_(progress) {}

    std::vector<Finding> run() {
        if (!checkRoot())
            return findings_;
        checkServers();
        checkPostalCodes();
        checkPaths();
        return findings_;
    }

    std::vector<Finding> runOn(const QString& base) {
        const NamedBase named = FindBase(layout_.home, base);
        examine(named.name, named.name, named.connection, named.kind);
        return findings_;
    }

  private:
    void good(const QString& words) { findings_.push_back({true, words}); }
    void bad(const QString& words) { findings_.push_back({false, words}); }
    void tell(bool right, const QString& yes, const QString& no) { findings_.push_back({right, right ? yes : no}); }

    static QString withSlashes(QString path) { return path.replace(u'\\', u'/'); }

    bool checkRoot() {
        const QString path = layout_.config(u"server_aplic.ini"_s);
        const std::optional<QStringList> lines = LinesOf(path);
        if (!lines) {
            bad(u"o arquivo %1 não existe ou não pode ser lido; o programa não inicia sem ele"_s.arg(path));
            return false;
        }
        const QString line = Trim(lines->value(0));
        places_.root =
            line.isEmpty() ? QString() : withSlashes(Trim(CampoDaLinha(line, 1)) + Trim(CampoDaLinha(line, 2)));
        const bool closed = places_.root.isEmpty() || places_.root.endsWith(u'/');
        tell(closed, u"pasta da aplicação: %1"_s.arg(places_.root.isEmpty() ? layout_.home : places_.root),
             u"a pasta em %1 (%2) deve terminar com uma barra"_s.arg(path, places_.root));
        return true;
    }

    /// A file that can hold a password should not be open to everybody on the machine.
    void checkRights(const QString& path) {
        if (!system::ThisSystem().rightsAreNumbers)
            return;
        tell(!isOpenToEverybody(path), u"%1 só pode ser lido pelo dono e seu grupo"_s.arg(path),
             u"%1 pode ser lido por qualquer usuário e pode conter uma senha; use: chmod 640 %1"_s.arg(path));
    }

    void checkServers() {
        const QString path = places_.find(u"server.ini"_s);
        const std::optional<QStringList> lines = LinesOf(path);
        if (!lines)
            return bad(u"o arquivo %1 não existe ou não pode ser lido"_s.arg(path));
        checkRights(path);
        for (qsizetype i = 0; i < Environments().size(); ++i)
            checkLine(u"ambiente %1 (linha %2 de %3)"_s.arg(Environments()[i].name).arg(i + 1).arg(path),
                      Environments()[i].name, lines->value(i), Base::Main);
        checkCopy(Environments().front().name, lines->value(0));
    }

    /// The base of everyday work needs a copy that is not old; one that has none yet counts from its creation.
    void checkCopy(const QString& name, const QString& line) {
        const ServerLine server(line);
        if (!data::TagOpens(server.tag(), data::Engine::Firebird))
            return;
        const std::optional<Copy> last = LastCopy(layout_.home, name);
        const QDateTime since = last                      ? last->when
                                : !fallen_.contains(name) ? creationOf(server.firebirdConnection)
                                                          : QDateTime();
        if (!since.isValid())
            return; // it does not open, and that has been told
        const qint64 days = since.daysTo(now_);
        const QString way = u"use: pessoas-base backup --home %1 ARQUIVO"_s.arg(layout_.home);
        const QString when = since.toLocalTime().toString(u"dd/MM/yyyy hh:mm"_s);
        if (last)
            tell(
                days <= daysOfACopy, u"última cópia de segurança da base %1: %2 (%3)"_s.arg(name, when, last->file),
                u"a última cópia de segurança da base %1 é de %2, há %3 dias; %4"_s.arg(name, when).arg(days).arg(way));
        else
            tell(days <= daysOfACopy, u"base %1, criada em %2, ainda sem cópia de segurança"_s.arg(name, when),
                 u"a base %1, criada em %2, não tem nenhuma cópia de segurança; %3"_s.arg(name, when, way));
    }

    static QDateTime creationOf(const QString& connection) {
        try {
            const QString told =
                Loader(connection).rows(u"SELECT CAST(MON$CREATION_DATE AS VARCHAR(60)) FROM MON$DATABASE"_s)[0][0];
            return QDateTime::fromString(told.first(19), u"yyyy-MM-dd hh:mm:ss"_s);
        } catch (const RuntimeError&) {
            return {};
        }
    }

    /// Who can read a base file needs no password for anything in it.
    void checkEmbedded(const QString& what, const firebird::ConnectionText& base) {
        if (isOpenToEverybody(base.path))
            bad(u"%1: o arquivo %2 pode ser lido por qualquer usuário; use: chmod 660 %2"_s.arg(what, base.path));
        for (const Finding& finding : CheckSharing(what, base.path))
            findings_.push_back(finding);
        checkLockPlace(what, base.path);
    }

    /// A program knows one lock place, that of the first base it opens. Programs that begin with different ones of
    /// these bases would refuse each other the rest.
    void checkLockPlace(const QString& what, const QString& database) {
        const QString place = firebird::LockFolderOf(database);
        if (lockPlace_.isEmpty())
            lockPlace_ = place;
        if (place != lockPlace_)
            bad(u"%1: a base %2 tem a sua própria pasta de travas (%3), e não a das demais (%4); quem a abre em outro "
                "ambiente, ou por outra instalação, é recusado enquanto ela está aberta aqui; ponha as bases da "
                "instalação "
                "na mesma pasta, ou em um servidor"_s.arg(what, database, place, lockPlace_));
    }

    /// It would not open then, and that is not the base's fault.
    bool isHeldElsewhere(const QString& what, const QString& database) {
        const std::optional<firebird::PlaceInForce> place = firebird::PlaceInForceOf(database);
        if (!place || place->own)
            return false;
        bad(u"%1: outro programa tem a base %2 aberta com outras travas (computador %3, pasta de travas %4), e não com "
            "as dela (%5); daqui ela não abre enquanto ele não terminar, e não foi examinada"_s.arg(
                what, database, place->machine, place->folder, firebird::LockFolderOf(database)));
        return true;
    }

    void checkPostalCodes() {
        const QString path = places_.find(u"server_cep.ini"_s);
        const std::optional<QStringList> lines = LinesOf(path);
        if (!lines)
            return bad(u"o arquivo %1 não existe ou não pode ser lido; a pesquisa de CEP não funciona"_s.arg(path));
        checkRights(path);
        checkLine(u"base de CEPs (%1)"_s.arg(path), BaseNames().back(), lines->value(0), Base::PostalCode);
    }

    void checkLine(const QString& what, const QString& name, const QString& line, Base base) {
        if (progress_)
            progress_(u"base %1"_s.arg(name), 0, 0);
        if (line.trimmed().isEmpty())
            return bad(u"%1: a linha está vazia"_s.arg(what));
        const ServerLine server(line);
        if (!server.complete)
            return bad(u"%1: a linha precisa de sete campos separados por ^"_s.arg(what));
        static const QSet<QString> booleans{u"true"_s, u"false"_s, u"0"_s, u"1"_s};
        if (!booleans.contains(server.keepsAccents.trimmed().toLower()))
            return bad(u"%1: o sétimo campo (preserva acentos) deve ser True ou False, e não [%2]"_s.arg(
                what, server.keepsAccents));
        if (!data::TagOpens(server.engine, data::Engine::Firebird))
            return good(
                u"%1: motor %2; a conexão e as tabelas são verificadas no próprio servidor"_s.arg(what, server.tag()));
        try {
            const firebird::ConnectionText text = firebird::ReadConnectionText(server.firebirdConnection);
            if (text.embedded) {
                checkEmbedded(what, text);
                if (isHeldElsewhere(what, text.path) || fells(what, name, text.path))
                    return;
            }
        } catch (const RuntimeError& error) {
            return bad(u"%1: a base não abre (%2)"_s.arg(what, FaultWords(error)));
        }
        examine(what, name, server.firebirdConnection, base);
    }

    /// A base with pages of rubbish can fell the engine, and the process with it, or stop it for good; so another one
    /// tries first.
    bool fells(const QString& what, const QString& name, const QString& database) {
        QProcess other;
        other.setStandardOutputFile(QProcess::nullDevice());
        other.setStandardErrorFile(QProcess::nullDevice());
        other.start(QCoreApplication::applicationDirPath() + u"/pessoas-base"_s,
                    {QLatin1StringView(TryBase), u"--home"_s, layout_.home, u"--base"_s, name});
        constexpr int longEnough = 120'000; // milliseconds; a base of a million persons takes seconds
        if (!other.waitForStarted())
            return false;
        if (other.waitForFinished(longEnough)) {
            if (other.exitStatus() == QProcess::NormalExit && other.exitCode() == 0)
                return false;
        } else {
            other.kill();
            other.waitForFinished();
        }
        fallen_ << name;
        bad(u"%1: o motor falha ao ler a base %2; ela está danificada; refaça-a da última cópia: pessoas-base restore "
            "--home %3 --base %4 --replace CÓPIA"_s.arg(what, database, layout_.home, name));
        return true;
    }

    void examine(const QString& what, const QString& name, const QString& connection, Base base) {
        try {
            Loader loader(connection);
            const qsizetype before = qsizetype(findings_.size());
            checkTables(loader, what, base);
            checkGenerators(loader, what, base);
            if (qsizetype(findings_.size()) == before)
                checkNames(loader, what, base);
            checkIndexes(loader, name, what, base);
            if (base == Base::Main)
                checkContent(loader, what);
            if (qsizetype(findings_.size()) == before)
                good(u"%1: conexão, tabelas, colunas, índices e geradores"_s.arg(what));
        } catch (const RuntimeError& error) {
            bad(u"%1: a base não abre (%2)"_s.arg(what, FaultWords(error)));
        }
    }

    void checkTables(Loader& loader, const QString& what, Base base) {
        QSet<QString> present;
        for (const QStringList& row :
             loader.rows(u"SELECT TRIM(RDB$RELATION_NAME) || '.' || TRIM(RDB$FIELD_NAME) FROM RDB$RELATION_FIELDS"_s))
            present.insert(row.front());
        for (const Table& table : Tables()) {
            if (table.base != base)
                continue;
            QStringList missing;
            for (const Column& column : table.columns)
                if (!present.contains((table.name + u'.' + column.name).toUpper()))
                    missing << column.name;
            if (missing.size() == qsizetype(table.columns.size()))
                bad(u"%1: falta a tabela %2"_s.arg(what, table.name));
            else if (!missing.isEmpty())
                bad(u"%1: na tabela %2 faltam as colunas %3"_s.arg(what, table.name, missing.join(u", "_s)));
        }
    }

    void checkGenerators(Loader& loader, const QString& what, Base base) {
        QSet<QString> present;
        for (const QStringList& row : loader.rows(u"SELECT TRIM(RDB$GENERATOR_NAME) FROM RDB$GENERATORS"_s))
            present.insert(row.front());
        for (const Table& table : Tables()) {
            if (table.base != base || table.generator.isEmpty())
                continue;
            if (!present.contains(table.generator)) {
                bad(u"%1: falta o gerador %2, que numera a tabela %3"_s.arg(what, table.generator, table.name));
                continue;
            }
            const QString key = table.columns.front().name;
            const qint64 last = loader.number(u"SELECT MAX(%1) FROM %2"_s.arg(key, table.name));
            const qint64 at = loader.number(u"SELECT GEN_ID(%1, 0) FROM RDB$DATABASE"_s.arg(table.generator));
            if (at < last)
                bad(u"%1: o gerador %2 está em %3, mas a tabela %4 já chega a %5; use: SET GENERATOR %2 TO %5"_s
                        .arg(what, table.generator)
                        .arg(at)
                        .arg(table.name)
                        .arg(last));
        }
    }

    /// Of tables that are there, as has been looked at before.
    void checkNames(Loader& loader, const QString& what, Base base) {
        for (const NameColumn& names : NameColumns(base))
            if (const qint64 rows = names.withApostrophe(loader); rows > 0)
                bad(u"%1: %2 nome(s) com apóstrofo em %3, e escolher um deles encerra o programa; "
                    "use: pessoas-base upgrade --home %4"_s.arg(what)
                        .arg(rows)
                        .arg(QLatin1StringView(names.table), layout_.home));
    }

    void checkIndexes(Loader& loader, const QString& name, const QString& what, Base base) {
        const IndexDifference difference = CompareIndexes(loader, base);
        if (difference.empty())
            return;
        QStringList missing;
        for (const Index& index : difference.missing)
            missing << IndexWords(index);
        QStringList words;
        if (!missing.isEmpty())
            words << u"faltam "_s + missing.join(u", "_s);
        if (!difference.surplus.isEmpty())
            words << u"sobram "_s + difference.surplus.join(u", "_s);
        bad(u"%1: os índices não são os desta versão (%2); use: pessoas-base indexes --home %3 "
            "--base %4"_s.arg(what, words.join(u"; "_s), layout_.home, name));
    }

    void checkContent(Loader& loader, const QString& what) {
        for (const char* name : {"UF00", "muni_ibge", "pais", "EMPR", "USEN"})
            if (loader.number(u"SELECT COUNT(*) FROM %1"_s.arg(QLatin1StringView(name))) == 0)
                bad(u"%1: a tabela %2 está vazia"_s.arg(what, QLatin1StringView(name)));
    }

    void checkPaths() {
        const QString path = places_.find(u"paths.ini"_s);
        const std::optional<QStringList> lines = LinesOf(path);
        if (!lines)
            return bad(u"o arquivo %1 não existe ou não pode ser lido"_s.arg(path));
        constexpr qsizetype allFields = 12;
        const QString line = Trim(lines->value(0));
        const auto field = [&](qint16 number) { return withSlashes(Trim(CampoDaLinha(line, number))); };
        const qsizetype fields = CamposNaLinha(line);
        tell(fields >= allFields, u"%1: doze campos"_s.arg(path),
             u"%1: esperados doze campos separados por ^, há %2"_s.arg(path).arg(fields));
        const QString images = field(3);
        tell(images.endsWith(u'/'), u"pasta de imagens: %1"_s.arg(images),
             u"a pasta de imagens [%1] deve terminar com uma barra"_s.arg(images));
        for (const QString& picture : {images + LinkedPicture(), images + UnlinkedPicture()})
            checkPicture(picture, u"as telas param sem ela"_s);
        checkPicture(field(7), u"produtos sem foto não mostram imagem"_s);
        const QString pages = field(10);
        tell(QFileInfo(pages).isDir() && QFileInfo(pages).isWritable(), u"pasta de páginas: %1"_s.arg(pages),
             u"a pasta de páginas [%1] não existe ou não pode ser gravada"_s.arg(pages));
    }

    void checkPicture(const QString& path, const QString& consequence) {
        QFile file(path);
        const bool right = file.open(QIODevice::ReadOnly) && file.read(2) == "BM";
        tell(right, u"imagem %1"_s.arg(path),
             u"a imagem %1 não existe ou não é um bitmap; %2"_s.arg(path, consequence));
    }

    Layout layout_;
    Places places_;
    QDateTime now_;
    Progress progress_;
    QString lockPlace_; ///< of the bases so far
    QSet<QString> fallen_;
    std::vector<Finding> findings_;
};

} // namespace

std::vector<Finding> CheckBase(const QString& home, const QString& name) {
    return Checker(home, {}, {}).runOn(name);
}

std::vector<Finding> CheckInstallation(const QString& home, const QDateTime& now, const Progress& progress) {
    return Checker(home, now, progress).run();
}

} // namespace vorta::kit
