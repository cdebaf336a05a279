#include "kit/Schema.h"

#include "base/Literals.h"

#include <algorithm>

namespace vorta::kit {

namespace {

Column key(const char* name) {
    return {QString::fromLatin1(name), Kind::Key};
}
Column integer(const char* name) {
    return {QString::fromLatin1(name), Kind::Integer};
}
Column amount(const char* name) {
    return {QString::fromLatin1(name), Kind::Amount};
}
Column date(const char* name) {
    return {QString::fromLatin1(name), Kind::Date};
}
Column text(const char* name, int length) {
    return {QString::fromLatin1(name), Kind::Text, length};
}

/// Lengths are generous where a screen sets no limit: an engine answers a text that is too long with an error.
constexpr int flag = 1;
constexpr int dayAndMonth = 5;
constexpr int code = 20;
constexpr int name = 100;
constexpr int note = 255;

Table table(const char* title, std::vector<Column> columns, const char* generator = "") {
    return {QString::fromLatin1(title), Base::Main, std::move(columns), QString::fromLatin1(generator)};
}

Table numbered(Table given, const char* generator) {
    given.generator = QString::fromLatin1(generator);
    given.filledByDatabase = true;
    return given;
}

/// The contact people of a role: seven tables of the same form, `prefix` being the role's table in their column names.
Table contacts(const char* title, const char* keyName, const char* parent, const char* prefix,
               const char* generator = "") {
    const auto own = [&](const char* subject, int length) {
        return Column{QString::fromLatin1(subject) + u'_' + QString::fromLatin1(prefix) + u"_cont"_s, Kind::Text,
                      length};
    };
    return table(title,
                 {key(keyName), integer(parent), own("carg", name), own("nome", name), own("tele", name),
                  own("emai", name), text("data_nasc", dayAndMonth), date("data_incl"), integer("user_incl")},
                 generator);
}

std::vector<Column> with(std::vector<Column> first, const std::vector<Column>& more) {
    first.insert(first.end(), more.begin(), more.end());
    return first;
}

/// Who put a row in and who took it out of use.
std::vector<Column> audited(std::vector<Column> columns) {
    return with(std::move(columns), {date("data_incl"), integer("user_incl"), date("data_desa"), integer("user_desa")});
}

Table bankedRole(const char* title, const char* keyName, const char* registration) {
    return table(title, audited({key(keyName), integer("idpess"), date("data_cred"), amount("valo_sala"),
                                 amount("perc_pool"), amount("perc_coms"), text(registration, name), integer("idbanc"),
                                 text("banc_agen", name), text("banc_cont", name), text("codi_empr", code)}));
}

std::vector<Column> address(const char* qualifier) {
    std::vector<Column> block;
    const auto add = [&](const char* subject, int length) {
        block.push_back(
            {u"%1_%2_PESS"_s.arg(QLatin1StringView(subject), QLatin1StringView(qualifier)), Kind::Text, length});
    };
    add("ENDE", name);
    add("NUME", name);
    add("CMPL", name);
    add("BAIR", name);
    add("CIDA", name);
    add("UF00", code);
    add("CEP0", code);
    add("PAIS", name);
    add("CODI_MUNI", code);
    return block;
}

Table person() {
    std::vector<Column> columns{key("idPESS"),
                                text("pess_codi_exte", code),
                                text("PSFI_PSJU", flag),
                                text("CPF0_CNPJ", code),
                                text("NOME_PESS", name),
                                text("NOME_CONH", name),
                                text("RG00_IE00", code),
                                text("NUME_IMUN_PESS", code),
                                text("NUME_SUFRAMA_PESS", code),
                                text("NUME_SUBS_TRIB_PESS", code),
                                text("FLAG_FISC_PESS", code)};
    for (const char* qualifier : {"COML", "ENTG", "COBR"})
        columns = with(std::move(columns), address(qualifier));
    columns = with(std::move(columns), {text("TELE_0001_PESS", code),
                                        text("TELE_0002_PESS", code),
                                        text("FAX0_0001_PESS", code),
                                        text("FAX0_0002_PESS", code),
                                        text("EMAI_PESS", name),
                                        text("HTTP_PESS", name),
                                        text("NOME_CONT_PESS", name),
                                        text("PRIN_NOME_CONT", name),
                                        text("PRIN_FONE_CONT", name),
                                        text("PRIN_EMAI_CONT", name),
                                        text("Data_Aniv", dayAndMonth),
                                        date("data_aniv_rela"),
                                        text("SEXO", flag),
                                        integer("idvend"),
                                        integer("IDPESS_TRPT"),
                                        integer("idTipo_Clie"),
                                        text("tabe_prec", code),
                                        text("OBSE_PESS_0001", note),
                                        text("OBSE_PESS_0002", note),
                                        text("OBSE_PESS_0003", note),
                                        text("codi_empr", code),
                                        integer("idCLIE"),
                                        integer("idFORN"),
                                        integer("idTRPT"),
                                        integer("idMOTO"),
                                        integer("idARQT"),
                                        integer("idDECO"),
                                        date("DATA_INCL"),
                                        text("USER_INCL", code),
                                        date("DATA_DESA"),
                                        text("USER_DESA", code)});
    return table("PESS", std::move(columns), "GEN_PESS");
}

std::vector<Table> persons() {
    return {person(), contacts("PESS_CONT", "idpess_cont", "idpess", "pess", "GEN_PESS_CONT"),
            table("PESS_ATIV",
                  {key("idpess_ativ"), integer("idpess"), integer("idativ"), date("data_incl"), integer("user_incl")},
                  "GEN_PESS_ATIV")};
}

std::vector<Table> roles() {
    return {
        table(
            "CLIE",
            audited({key("idclie"), integer("idpess"), text("reve", flag), amount("limi_cred"), integer("idTipo_Clie"),
                     integer("idtrpt"), date("data_cred"), integer("idvend"), amount("lime_maxi_conh"),
                     integer("idregi_espe_icms"), amount("valo_troc"), text("codi_empr", code)}),
            "GEN_CLIE"),
        contacts("CLIE_CONT", "idclie_cont", "idclie", "clie", "GEN_CLIE_CONT"),
        table("FORN",
              audited({key("idforn"), integer("idpess"), date("data_cred"), amount("limi_copr"),
                       amount("desconto_forn"), text("codi_empr", code)}),
              "GEN_FORN"),
        contacts("FORN_CONT", "idforn_cont", "idforn", "forn", "GEN_FORN_CONT"),
        table("TRPT", audited({key("idtrpt"), integer("idpess"), date("data_cred"), text("codi_empr", code)}),
              "GEN_TRPT"),
        contacts("TRPT_CONT", "idtrpt_cont", "idtrpt", "trpt", "GEN_TRPT_CONT"),
        table("MOTO",
              audited({key("idMoto"), integer("idpess"), date("data_adms"), text("cnh0_moto", name),
                       text("pron_moto", name), text("uf00_pron_moto", code), text("pai0_moto", name),
                       text("mae0_moto", name), text("refe_moto", note)}),
              "GEN_MOTO"),
        table("VEND",
              audited({key("idvend"), integer("idpess"), date("data_adms"), amount("valo_sala"), amount("perc_pool"),
                       amount("perc_coms"), text("codi_empr", code)}),
              "GEN_VEND"),
        numbered(bankedRole("ARQT", "idArqt", "arqt_crea"), "GEN_ARQT"),
        numbered(contacts("ARQT_CONT", "idarqt_cont", "idArqt", "arqt"), "GEN_ARQT_CONT"),
        numbered(bankedRole("DECO", "iddeco", "deco_add0"), "GEN_DECO"),
        numbered(contacts("DECO_CONT", "iddeco_cont", "iddeco", "deco"), "GEN_DECO_CONT"),
        // Roles of the freight program, asked only by the search for a document.
        table("clie_reme", {key("idclie_reme"), integer("idpess")}),
        table("clie_dest", {key("idclie_dest"), integer("idpess")}),
        // The salespersons of an older release, still listed by some role screens.
        table("Vendedor",
              {key("idVendedor"), text("NOME_CONH", name), text("nome", name), date("dtinclusao"), date("dtdesativa")}),
    };
}

std::vector<Table> references() {
    return {
        table("USEN", {key("IDUSEN"), text("usen", name), text("NOME_USER", name)}),
        table("EMPR", {key("idempr"), text("codi_empr", code), text("nome_conh_empr", name), text("PATH_DANFE", note),
                       text("UF00_COML_EMPR", code), text("STAT_CEP8", flag), date("DATA_DESA")}),
        table("empr_cnfg", {key("idempr_cnfg"), text("nome_para", name), text("valo_para", note)}),
        table("cor_sist", {key("idcor_sist"), text("DESC_COR_SIST", name), text("CODI_BACK_0001", code),
                           text("CODI_FORE_0001", code), text("CODI_BACK_0002", code), text("CODI_FORE_0002", code)}),
        table("ativ", {key("idativ"), text("desc_ativ", name), date("data_desa")}),
        table("carg", {key("idcarg"), text("desc_carg", name), date("data_desa")}),
        table("cole", {key("idcole"), text("desc_cole", name), date("data_desa")}),
        table("Banc", {key("idBanc"), text("nome_Banc", 150), text("codi_banc", code), date("data_desa")}),
        table("cart", {key("idcart"), text("nome_cart", name), date("data_desa")}),
        table("tipo_clie", {key("idtipo_clie"), text("desc_tipo_clie", name), date("data_desa")}),
        table("TIPO_PROD", {key("idTIPO_PROD"), text("DESC_TIPO_PROD", name), date("data_desa")}),
        table("regi_espe_icms", {key("idregi_espe_icms"), text("desc_regi_espe_icms", name), date("data_desa")}),
        table("muni_ibge", {key("idmuni_ibge"), text("codi_muni_ibge", code), text("desc_muni_ibge", name),
                            text("uf00_muni_ibge", code), date("data_desa")}),
        table("UF00", {key("IDUF00"), text("CODI_UF00", code), date("DATA_DESA")}),
        table("pais", {key("idpais"), text("nome_pais", name), date("data_desa")}),
    };
}

/// The documents and products of other programs. A document's number is a text, as other programs put letters and zeros
/// into it.
std::vector<Table> trade() {
    return {
        table("nff", {key("idnff"), text("nume_nff", code)}),
        table("prod",
              {key("idprod"), text("codi_prod", code), text("desc_prod", name), text("CODI_REFE_PROD", name),
               integer("idmarc"), integer("idTIPO_PROD"), integer("idcole"), text("CAMINHO_ARQ_LOCAL_THUMB", note),
               text("CAMINHO_ARQ_LOCAL_NATURAL", note), text("CAMINHO_ARQ_WEB_THUMB", note), date("data_desa")}),
        table("prod_empr", {key("idprod_empr"),
                            integer("idprod"),
                            text("codi_empr", code),
                            amount("qtde_disp"),
                            amount("qtde_disp_0002"),
                            amount("QTDE_ESTO_COPR"),
                            amount("QTDE_ESTO_EMB1"),
                            amount("QTDE_ESTO_EMB2"),
                            amount("QTDE_ESTO_EMB3"),
                            amount("QTDE_PEDI_ABER"),
                            amount("qtde_esto_consig"),
                            amount("qtde_esto_demonstr"),
                            amount("VALO_VEDS"),
                            amount("VALO_VEDS_b"),
                            amount("VALO_VEDS_c"),
                            text("LOCA_FISI_ARMAZEM", name),
                            text("LOCA_FISI_PAVIMENTO", name),
                            text("LOCA_FISI_SETOR", name),
                            text("LOCA_FISI_CORREDOR", name),
                            text("LOCA_FISI_ESTANTE", name),
                            text("LOCA_FISI_PRATELEIRA", name)}),
        table("PEDI_VEDS", {key("idPEDI_VEDS"), integer("idClie"), text("NUME_PEDI", code), date("DATA_PEDI"),
                            integer("idnff0"), date("DATA_DESA")}),
        table("pedi_veds_deta", {key("idpedi_veds_deta"), integer("idpedi_veds"), integer("idprod"), amount("qtde"),
                                 amount("valo_liqu"), integer("idnff0"), date("data_desa")}),
        table("ORCA_VEDS", {key("idORCA_VEDS"), integer("idClie"), date("DATA_ORCA_VEDS"), date("DATA_DESA")}),
        table("orca_veds_deta", {key("idorca_veds_deta"), integer("idorca_veds"), amount("Qtde"), amount("valo_liqu"),
                                 date("data_desa")}),
        table("OS_VEDS", {key("idOS_VEDS"), integer("idClie"), date("DATA_OS"), date("DATA_DESA")}),
        table("os_veds_deta",
              {key("idos_veds_deta"), integer("idos_veds"), amount("Qtde"), amount("valo_liqu"), date("data_desa")}),
        table("PEDI_COMP",
              {key("IDPEDI_COMP"), integer("IDFORN"), date("DATA_PEDI_COMP"), date("DATA_PREV_ENTG"),
               date("DATA_REAL_ENTG"), text("OBSE_PEDI_COMP", note), integer("USER_INCL"), date("DATA_DESA")}),
        table("PEDI_COMP_DETA", {key("IDPEDI_COMP_DETA"), integer("IDPEDI_COMP"), integer("IDPROD"), amount("QTDE"),
                                 amount("VALO_UNIT"), amount("VALO_DESC"), amount("VALO_LIQU"),
                                 amount("VALO_TOTA_LIQU"), date("DATA_CHEG"), amount("QTDE_CHEG"), date("data_desa")}),
    };
}

std::vector<Table> postalCodes() {
    std::vector<Table> tables{
        table("LOGR", {text("CEP8_LOGR", 8), text("NOME_LOGR", name), text("UF00_LOGR", 2), text("CHAV_TIPO", code),
                       text("CHAV_LOCA", code), text("CHAV_BAIR", code)}),
        table("TIPO", {text("CHAV_TIPO", code), text("NOME_TIPO", name), text("ABRV_TIPO", code)}),
        table("LOCA", {text("CHAV_LOCA", code), text("NOME_LOCA", name)}),
        table("BAIR", {text("CHAV_BAIR", code), text("CHAV_LOCA", code), text("NOME_BAIR", name),
                       text("ABRV_BAIR", name), text("UF00_BAIR", 2)}),
    };
    for (Table& each : tables)
        each.base = Base::PostalCode;
    return tables;
}

/// What the statements of the register ask for besides keys: table, then the columns of each index, then those of each
/// descending one.
struct Asked {
    const char* table;
    std::vector<const char*> columns;
    std::vector<const char*> descending = {};
};

const std::vector<Asked>& asked() {
    static const std::vector<Asked> list{
        {"PESS", {"CPF0_CNPJ", "UF00_COML_PESS"}, {"NOME_PESS", "NOME_CONH", "pess_codi_exte"}},
        {"PESS_CONT", {"idpess"}},
        {"PESS_ATIV", {"idpess", "idativ"}},
        {"CLIE", {"idpess"}},
        {"CLIE_CONT", {"idclie"}},
        {"FORN", {"idpess"}},
        {"FORN_CONT", {"idforn"}},
        {"TRPT", {"idpess"}},
        {"TRPT_CONT", {"idtrpt"}},
        {"MOTO", {"idpess"}},
        {"VEND", {"idpess"}},
        {"ARQT", {"idpess"}},
        {"ARQT_CONT", {"idArqt"}},
        {"DECO", {"idpess"}},
        {"DECO_CONT", {"iddeco"}},
        {"clie_reme", {"idpess"}},
        {"clie_dest", {"idpess"}},
        {"empr_cnfg", {"nome_para"}},
        {"ativ", {"desc_ativ"}},
        {"carg", {"desc_carg"}},
        {"Banc", {"nome_Banc"}},
        {"muni_ibge", {"desc_muni_ibge", "uf00_muni_ibge"}},
        {"pais", {"nome_pais"}},
        {"prod", {"codi_prod", "desc_prod", "CODI_REFE_PROD"}},
        {"prod_empr", {"idprod, codi_empr"}},
        {"PEDI_VEDS", {"idClie, DATA_PEDI"}},
        {"pedi_veds_deta", {"idpedi_veds"}},
        {"ORCA_VEDS", {"idClie, DATA_ORCA_VEDS"}},
        {"orca_veds_deta", {"idorca_veds"}},
        {"OS_VEDS", {"idClie, DATA_OS"}},
        {"os_veds_deta", {"idos_veds"}},
        {"PEDI_COMP", {"IDFORN, DATA_PEDI_COMP"}},
        {"PEDI_COMP_DETA", {"IDPEDI_COMP", "IDPROD"}},
        {"LOGR", {"CEP8_LOGR", "NOME_LOGR"}},
        {"TIPO", {"CHAV_TIPO"}},
        {"LOCA", {"CHAV_LOCA"}},
        {"BAIR", {"CHAV_BAIR, CHAV_LOCA"}},
    };
    return list;
}

} // namespace

const Column* Table::column(const QString& wanted) const {
    const auto found = std::find_if(columns.begin(), columns.end(), [&](const Column& column) {
        return column.name.compare(wanted, Qt::CaseInsensitive) == 0;
    });
    return found == columns.end() ? nullptr : &*found;
}

const std::vector<Table>& Tables() {
    static const std::vector<Table> all = [] {
        std::vector<Table> tables;
        for (const auto& group : {persons(), roles(), references(), trade(), postalCodes()})
            tables.insert(tables.end(), group.begin(), group.end());
        return tables;
    }();
    return all;
}

const Table* FindTable(const QString& wanted) {
    const auto found = std::find_if(Tables().begin(), Tables().end(), [&](const Table& table) {
        return table.name.compare(wanted, Qt::CaseInsensitive) == 0;
    });
    return found == Tables().end() ? nullptr : &*found;
}

const std::vector<Index>& Indexes() {
    static const std::vector<Index> all = [] {
        std::vector<Index> indexes;
        for (const Table& table : Tables())
            if (table.hasKey())
                indexes.push_back({table.name, table.columns.front().name});
        for (const Asked& each : asked()) {
            for (const char* columns : each.columns)
                indexes.push_back({QString::fromLatin1(each.table), QString::fromLatin1(columns)});
            for (const char* columns : each.descending)
                indexes.push_back({QString::fromLatin1(each.table), QString::fromLatin1(columns), true});
        }
        return indexes;
    }();
    return all;
}

} // namespace vorta::kit
