#include "audit/SampleRegister.h"

#include "firebird/FirebirdAdapter.h"
#include "kit/Ddl.h"
#include "kit/Loader.h"
#include "odbc/OdbcAdapter.h"

#include <QFile>

#include <stdexcept>

namespace vorta::test {

namespace {

constexpr const char* personColumns = "IDPESS, PSFI_PSJU, CPF0_CNPJ, NOME_PESS, RG00_IE00, CIDA_COML_PESS, "
                                      "UF00_COML_PESS, CEP0_COML_PESS, PAIS_COML_PESS, CODI_MUNI_COML_PESS, "
                                      "TELE_0001_PESS, FAX0_0002_PESS, EMAI_PESS, DATA_DESA";

QString statementOf(const SampleRows& rows, const char* values) {
    return u"INSERT INTO %1 (%2) VALUES (%3)"_s.arg(QString::fromUtf8(rows.table), QString::fromUtf8(rows.columns),
                                                    QString::fromUtf8(values));
}

void writeFile(const QString& path, const QString& text) {
    QFile file(path);
    const QByteArray bytes = text.toUtf8();
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        throw std::runtime_error("the test cannot write " + path.toStdString());
}

data::AdapterFactory firebird() {
    return [](data::Engine) { return data::MakeFirebirdAdapter({}); };
}

data::AdapterFactory odbc() {
    return [](data::Engine) { return data::MakeOdbcAdapter(); };
}

} // namespace

const std::vector<SampleRows>& sampleRows() {
    static const std::vector<SampleRows> rows{
        {"PESS",
         personColumns,
         {
             // Nothing is wrong with the first.
             "1, 'J', '11.222.333/0001-81', 'ALFA COMERCIO', '110.042.490.114', 'OSASCO', 'SP', '06010-000', "
             "'BRASIL', '3534401', '11 2222-1111', NULL, 'a.b@c.com', NULL",
             "2, 'F', '___.___.___-__', 'BETO', 'MG-12', 'SAO PAULO', 'SP', '01310-100', 'BRASIL', NULL, NULL, NULL, "
             "NULL, NULL",
             "3, 'J', '11.222.333/0001-82', 'GAMA', '110042490115', 'OSASCO', 'SP', '06010-000', NULL, '3534401', "
             "NULL, NULL, NULL, NULL",
             "4, 'F', '11.222.333/0001-81', 'DELTA', 'ISENTO', NULL, NULL, '_____-___', 'BRASIL', NULL, NULL, NULL, "
             "NULL, NULL",
             "5, 'J', '12.ABC.345/01DE-35', 'LETRAS', 'ISENTO', NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL",
             "6, 'J', '11444777000161', 'SEM MARCAS', NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL",
             "7, 'F', '773.086.421-51', 'LONGE', NULL, 'OSASCO', 'RJ', '06010-000', 'BRASIL', NULL, NULL, NULL, NULL, "
             "NULL",
             "8, 'F', '780.740.742-50', 'TROCADA', NULL, 'CAMPINAS', 'SP', '13010-00', 'Brasil', '3534401', NULL, "
             "NULL, NULL, NULL",
             "9, 'F', '788.395.063-06', 'FONE UM', NULL, NULL, NULL, NULL, NULL, NULL, '(11) 3333-4444', '9999-99999', "
             "'joão@c.d', '2020-01-02'",
             "10, 'F', '796.049.384-79', 'FONE DOIS', NULL, NULL, NULL, NULL, NULL, NULL, '0000-0000', "
             "'+55 011 3333 4444', 'A@B.COM', NULL",
             "11, 'F', '803.703.705-38', 'CORREIO', NULL, NULL, NULL, NULL, NULL, NULL, '00000000', NULL, ' a@b.com', "
             "NULL",
             "12, 'F', '811.358.026-37', 'MARIA DA  SILVA', NULL, 'SANTA BARBARA D´OESTE', 'SP', '13450-000', NULL, "
             "'3545803', NULL, NULL, NULL, NULL",
             "13, 'F', '819.012.347-54', 'María da Silva', NULL, 'Santa Bárbara D''Oeste', 'SP', '13450-000', NULL, "
             "'3545803', NULL, NULL, NULL, NULL",
             "14, 'F', '826.666.668-75', 'FORA', NULL, 'ASUNCION', 'EX', '1234', 'PARAGUAI', '9', NULL, NULL, NULL, "
             "NULL",
             "15, 'F', '111.111.111-11', 'UNS', NULL, 'NADA', 'XX', '99999999', '', NULL, NULL, NULL, NULL, NULL",
             "16, 'J', '834.320.989-36', 'OUTRO TIPO', NULL, 'OSASCO', NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL",
             "17, 'J', '00.000.000/0000-00', 'ZEROS', NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL",
             "18, NULL, NULL, 'NADA', NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL",
         }},
        {"PESS",
         "IDPESS, PSFI_PSJU, CPF0_CNPJ, NOME_PESS, IDCLIE, IDFORN, IDVEND, IDTRPT, PRIN_EMAI_CONT, "
         "CIDA_ENTG_PESS, UF00_ENTG_PESS, CODI_MUNI_ENTG_PESS, CEP0_COBR_PESS, UF00_COBR_PESS",
         {"20, 'F', '841.975.310-60', 'VINCULOS', 501, 601, 999, 0, 'a@b', 'CAMPINAS', 'SP', '99', '90010-000', 'SP'",
          "21, 'F', '849.629.631-80', 'CERTA', 502, NULL, 702, NULL, NULL, NULL, NULL, NULL, NULL, NULL"}},
        {"CLIE",
         "IDCLIE, IDPESS, DATA_DESA",
         {"502, 21, NULL", "503, 9999, NULL", "504, 1, NULL", "505, 1, '2020-01-02'"}},
        {"FORN", "IDFORN, IDPESS", {"601, 1"}},
        {"VEND", "IDVEND, IDPESS", {"702, 1"}},
        {"PESS_CONT",
         "IDPESS_CONT, IDPESS, EMAI_PESS_CONT",
         {"801, 9998, NULL", "802, 1, 'sem arroba'", "803, 1, 'x@y.z'", "804, NULL, NULL"}},
        {"PESS_ATIV", "IDPESS_ATIV, IDPESS, IDATIV", {"851, 9997, 1", "852, 1, 1"}},
        {"CLIE_CONT", "IDCLIE_CONT, IDCLIE, EMAI_CLIE_CONT", {"901, 9996, NULL", "902, 504, '@x.y.z'"}},
    };
    return rows;
}

EmbeddedSample::EmbeddedSample(const std::vector<SampleRows>& rows)
    : installed_(Installed::copyOf(Installed::plain())), connection_(firebird()) {
    kit::Loader loader(installed_.production());
    for (const SampleRows& each : rows)
        for (const char* values : each.values)
            loader.run(statementOf(each, values));
    loader.commit();
    connection_.Open(data::Engine::Firebird, installed_.production());
}

QStringList EmbeddedSample::rows(const QString& query) const {
    QStringList lines;
    for (const QStringList& row : kit::Loader(installed_.production()).rows(query))
        lines << row.join(u'|');
    return lines;
}

SqlServerSample::SqlServerSample(const std::vector<SampleRows>& rows) : connection_(odbc()) {
    std::vector<SampleRows> all = rows;
    all.push_back({"MUNI_IBGE",
                   "IDMUNI_IBGE, CODI_MUNI_IBGE, DESC_MUNI_IBGE, UF00_MUNI_IBGE",
                   {"1, '3534401', 'Osasco', 'SP'", "2, '3509502', 'Campinas', 'SP'", "3, '3550308', 'São Paulo', 'SP'",
                    "4, '3545803', 'Santa Bárbara d´Oeste', 'SP'", "5, '3304557', 'Rio de Janeiro', 'RJ'"}});
    QString load;
    for (const SampleRows& each : all) {
        const QString table = QString::fromUtf8(each.table);
        load += u"SET IDENTITY_INSERT %1 ON\n"_s.arg(table);
        for (const char* values : each.values)
            load += statementOf(each, values) + u'\n';
        load += u"SET IDENTITY_INSERT %1 OFF\nGO\n"_s.arg(table);
    }
    const QString ddl = folder_.filePath(u"tables.sql"_s), loaded = folder_.filePath(u"rows.sql"_s);
    writeFile(ddl, kit::Script(data::Engine::SqlServer));
    writeFile(loaded, load);
    server_ = std::make_unique<servers::TdsServer>(QStringList{u"--ddl"_s, ddl, u"--load"_s, loaded});
    connection_.Open(data::Engine::SqlServer, server_->connectionString());
}

void FindingLines::found(const audit::Finding& finding) {
    all.push_back(finding);
}

QStringList FindingLines::of(audit::Check check) const {
    QStringList lines;
    for (const audit::Finding& each : all)
        if (each.check == check)
            lines << u"%1|%2|%3|%4"_s.arg(each.person).arg(each.field, each.value, each.words);
    return lines;
}

} // namespace vorta::test
