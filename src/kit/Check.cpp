#include "kit/Check.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "kit/ConfigFiles.h"
#include "kit/Loader.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>

namespace vorta::kit {

namespace {

/// Where the files are looked for: the configured folder first, then the fixed one.
struct Places {
    explicit Places(const Layout& given) : layout(given) {}
    const Layout& layout;
    QString root;

    QString find(const QString& name) const {
        const QString configured = root + QStringLiteral("config/") + name;
        return !root.isEmpty() && QFile::exists(configured) ? configured : layout.config(name);
    }
};

class Checker {
  public:
    explicit Checker(const QString& home) : layout_(home), places_(layout_) {}

    std::vector<Finding> run() {
        if (!checkRoot())
            return findings_;
        checkServers();
        checkPostalCodes();
        checkPaths();
        return findings_;
    }

  private:
    void good(const QString& words) { findings_.push_back({true, words}); }
    void bad(const QString& words) { findings_.push_back({false, words}); }
    void tell(bool right, const QString& yes, const QString& no) { findings_.push_back({right, right ? yes : no}); }

    static QString withSlashes(QString path) { return path.replace(u'\\', u'/'); }

    bool checkRoot() {
        const QString path = layout_.config(QStringLiteral("server_aplic.ini"));
        const std::optional<QStringList> lines = LinesOf(path);
        if (!lines) {
            bad(QStringLiteral("o arquivo %1 não existe ou não pode ser lido; o programa não inicia sem ele")
                    .arg(path));
            return false;
        }
        const QStringList fields = FieldsOf(lines->value(0).trimmed());
        places_.root = withSlashes(Trim(fields.value(0)) + Trim(fields.value(1)));
        const bool closed = places_.root.isEmpty() || places_.root.endsWith(u'/');
        tell(closed, QStringLiteral("pasta da aplicação: %1").arg(places_.root.isEmpty() ? layout_.home : places_.root),
             QStringLiteral("a pasta em %1 (%2) deve terminar com uma barra").arg(path, places_.root));
        return true;
    }

    /// A file that can hold a password should not be open to everybody on the machine.
    void checkRights(const QString& path) {
        const QFile::Permissions rights = QFileInfo(path).permissions();
        tell(!(rights & (QFile::ReadOther | QFile::WriteOther)),
             QStringLiteral("%1 só pode ser lido pelo dono e seu grupo").arg(path),
             QStringLiteral("%1 pode ser lido por qualquer usuário e pode conter uma senha; use: chmod 640 %1")
                 .arg(path));
    }

    void checkServers() {
        const QString path = places_.find(QStringLiteral("server.ini"));
        const std::optional<QStringList> lines = LinesOf(path);
        if (!lines)
            return bad(QStringLiteral("o arquivo %1 não existe ou não pode ser lido").arg(path));
        checkRights(path);
        for (qsizetype i = 0; i < Environments().size(); ++i)
            checkLine(QStringLiteral("ambiente %1 (linha %2 de %3)").arg(Environments()[i].name).arg(i + 1).arg(path),
                      lines->value(i), Base::Main);
    }

    void checkPostalCodes() {
        const QString path = places_.find(QStringLiteral("server_cep.ini"));
        const std::optional<QStringList> lines = LinesOf(path);
        if (!lines)
            return bad(QStringLiteral("o arquivo %1 não existe ou não pode ser lido; a pesquisa de CEP não funciona")
                           .arg(path));
        checkRights(path);
        checkLine(QStringLiteral("base de CEPs (%1)").arg(path), lines->value(0), Base::PostalCode);
    }

    void checkLine(const QString& what, const QString& line, Base base) {
        if (line.trimmed().isEmpty())
            return bad(QStringLiteral("%1: a linha está vazia").arg(what));
        const ServerLine server(line);
        if (!server.complete)
            return bad(QStringLiteral("%1: a linha precisa de sete campos separados por ^").arg(what));
        static const QSet<QString> booleans{QStringLiteral("true"), QStringLiteral("false"), QStringLiteral("0"),
                                            QStringLiteral("1")};
        if (!booleans.contains(server.keepsAccents.trimmed().toLower()))
            return bad(QStringLiteral("%1: o sétimo campo (preserva acentos) deve ser True ou False, e não [%2]")
                           .arg(what, server.keepsAccents));
        if (!server.isFirebird())
            return good(QStringLiteral("%1: motor %2; a conexão e as tabelas são verificadas no próprio servidor")
                            .arg(what, server.engine.isEmpty() ? QStringLiteral("MS-SQL") : server.engine));
        checkBase(what, server.connection, base);
    }

    void checkBase(const QString& what, const QString& connection, Base base) {
        try {
            Loader loader(connection);
            const qsizetype before = qsizetype(findings_.size());
            checkTables(loader, what, base);
            checkGenerators(loader, what, base);
            if (base == Base::Main)
                checkContent(loader, what);
            if (qsizetype(findings_.size()) == before)
                good(QStringLiteral("%1: conexão, tabelas, colunas e geradores").arg(what));
        } catch (const RuntimeError& error) {
            bad(QStringLiteral("%1: a base não abre (%2)").arg(what, error.description()));
        }
    }

    void checkTables(Loader& loader, const QString& what, Base base) {
        QSet<QString> present;
        for (const QStringList& row : loader.rows(QStringLiteral(
                 "SELECT TRIM(RDB$RELATION_NAME) || '.' || TRIM(RDB$FIELD_NAME) FROM RDB$RELATION_FIELDS")))
            present.insert(row.front());
        for (const Table& table : Tables()) {
            if (table.base != base)
                continue;
            QStringList missing;
            for (const Column& column : table.columns)
                if (!present.contains((table.name + u'.' + column.name).toUpper()))
                    missing << column.name;
            if (missing.size() == qsizetype(table.columns.size()))
                bad(QStringLiteral("%1: falta a tabela %2").arg(what, table.name));
            else if (!missing.isEmpty())
                bad(QStringLiteral("%1: na tabela %2 faltam as colunas %3")
                        .arg(what, table.name, missing.join(QStringLiteral(", "))));
        }
    }

    void checkGenerators(Loader& loader, const QString& what, Base base) {
        QSet<QString> present;
        for (const QStringList& row :
             loader.rows(QStringLiteral("SELECT TRIM(RDB$GENERATOR_NAME) FROM RDB$GENERATORS")))
            present.insert(row.front());
        for (const Table& table : Tables()) {
            if (table.base != base || table.generator.isEmpty())
                continue;
            if (!present.contains(table.generator)) {
                bad(QStringLiteral("%1: falta o gerador %2, que numera a tabela %3")
                        .arg(what, table.generator, table.name));
                continue;
            }
            const QString key = table.columns.front().name;
            const qint64 last = loader.number(QStringLiteral("SELECT MAX(%1) FROM %2").arg(key, table.name));
            const qint64 at =
                loader.number(QStringLiteral("SELECT GEN_ID(%1, 0) FROM RDB$DATABASE").arg(table.generator));
            if (at < last)
                bad(QStringLiteral(
                        "%1: o gerador %2 está em %3, mas a tabela %4 já chega a %5; use: SET GENERATOR %2 TO %5")
                        .arg(what, table.generator)
                        .arg(at)
                        .arg(table.name)
                        .arg(last));
        }
    }

    void checkContent(Loader& loader, const QString& what) {
        for (const char* name : {"UF00", "muni_ibge", "pais", "EMPR", "USEN"})
            if (loader.number(QStringLiteral("SELECT COUNT(*) FROM %1").arg(QLatin1StringView(name))) == 0)
                bad(QStringLiteral("%1: a tabela %2 está vazia").arg(what, QLatin1StringView(name)));
    }

    void checkPaths() {
        const QString path = places_.find(QStringLiteral("paths.ini"));
        const std::optional<QStringList> lines = LinesOf(path);
        if (!lines)
            return bad(QStringLiteral("o arquivo %1 não existe ou não pode ser lido").arg(path));
        constexpr qsizetype allFields = 12;
        QStringList fields = FieldsOf(lines->value(0).trimmed());
        tell(fields.size() >= allFields || lines->value(0).trimmed().count(u'^') >= allFields,
             QStringLiteral("%1: doze campos").arg(path),
             QStringLiteral("%1: esperados doze campos separados por ^, há %2").arg(path).arg(fields.size()));
        const QString images = withSlashes(fields.value(2).trimmed());
        tell(images.endsWith(u'/'), QStringLiteral("pasta de imagens: %1").arg(images),
             QStringLiteral("a pasta de imagens [%1] deve terminar com uma barra").arg(images));
        for (const QString& picture : {images + LinkedPicture(), images + UnlinkedPicture()})
            checkPicture(picture, QStringLiteral("as telas param sem ela"));
        checkPicture(withSlashes(fields.value(6).trimmed()), QStringLiteral("produtos sem foto não mostram imagem"));
        const QString pages = withSlashes(fields.value(9).trimmed());
        tell(QFileInfo(pages).isDir() && QFileInfo(pages).isWritable(),
             QStringLiteral("pasta de páginas: %1").arg(pages),
             QStringLiteral("a pasta de páginas [%1] não existe ou não pode ser gravada").arg(pages));
    }

    void checkPicture(const QString& path, const QString& consequence) {
        QFile file(path);
        const bool right = file.open(QIODevice::ReadOnly) && file.read(2) == "BM";
        tell(right, QStringLiteral("imagem %1").arg(path),
             QStringLiteral("a imagem %1 não existe ou não é um bitmap; %2").arg(path, consequence));
    }

    Layout layout_;
    Places places_;
    std::vector<Finding> findings_;
};

} // namespace

std::vector<Finding> CheckInstallation(const QString& home) {
    return Checker(home).run();
}

} // namespace vorta::kit
