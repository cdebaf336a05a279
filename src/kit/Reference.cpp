#include "kit/Reference.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"

#include <QFile>

#include <array>

static void initialiseResources() {
    Q_INIT_RESOURCE(kit); // a static library's resources are left out unless somebody asks for them
}

namespace vorta::kit {

namespace {

constexpr std::array tables{"UF00",      "muni_ibge",      "pais", "Banc",      "carg", "ativ",
                            "tipo_clie", "regi_espe_icms", "cart", "TIPO_PROD", "cole"};

void load(Loader& loader, const char* name) {
    const Table& table = *FindTable(QString::fromLatin1(name));
    const ReferenceTable data = ReadReference(table.name);
    RowLoader rows(loader, table, QStringList(table.columns.front().name) + data.columns);
    for (const QStringList& row : data.rows) {
        rows << rows.sent() + 1;
        for (const QString& text : row)
            rows << text;
        rows.send();
    }
}

} // namespace

QString WithoutApostrophes(QString text) {
    return text.replace(u'\'', u'´');
}

ReferenceTable ReadReference(const QString& name) {
    initialiseResources();
    QFile file(u":/kit/%1.tsv"_s.arg(name));
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError(errorNumber::FileNotFound, u"O programa não traz a tabela %1"_s.arg(name));
    QStringList lines = WithoutApostrophes(QString::fromUtf8(file.readAll())).split(u'\n', Qt::SkipEmptyParts);
    ReferenceTable table;
    table.columns = lines.takeFirst().split(u'\t');
    for (const QString& line : std::as_const(lines))
        table.rows.push_back(line.split(u'\t'));
    return table;
}

void LoadReferenceData(Loader& loader) {
    for (const char* name : tables)
        load(loader, name);
    RowLoader company(loader, *FindTable(u"EMPR"_s));
    company << 1 << "0001"
            << "EMPRESA MODELO" << nullptr << "SP"
            << "S" << nullptr;
    company.send();
    RowLoader user(loader, *FindTable(u"USEN"_s));
    user << 1 << "ADMIN"
         << "ADMINISTRADOR";
    user.send();
}

} // namespace vorta::kit
