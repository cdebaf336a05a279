#include "shared/Preenchimento.h"

#include "base/Literals.h"
#include "base/Text.h"
#include "launch/AcessoDados.h"
#include "shared/TextoEntrada.h"
#include "shared/TipoDocumento.h"

#include <array>

namespace vorta {

namespace {

using data::Recordset;
using data::Statement;
using screen::ListField;

/// Empties the list and adds one column of each row; a null column is an error, as no list foresees one.
void Preenche(ContextoExecucao& contexto, const Statement& comando, data::Piece coluna, ListField& lista) {
    lista.clear();
    for (Recordset registros = AbreLeitura(contexto, comando, {coluna}); !registros.Eof(); registros.MoveNext())
        lista.addItem(registros.Fields(coluna.utf8()).text());
}

ListField& ListaDa(screen::Screen& tela, const char* nome) {
    auto* lista = dynamic_cast<ListField*>(&tela.field(QString::fromLatin1(nome)));
    if (!lista)
        throw RuntimeError(errorNumber::NoSuchMember, u"%1 não é uma lista"_s.arg(QLatin1StringView(nome)));
    return *lista;
}

bool comecaComAlgarismo(const QString& texto) {
    return !texto.isEmpty() && texto[0] >= u'0' && texto[0] <= u'9';
}

/// The ways of paying that are settled through a bank.
constexpr std::array<QStringView, 5> formasBancarias{u"BOLETO", u"CHEQUE", u"TRANSFERENCIA", u"TED", u"DOC"};

} // namespace

void PreencheTipoCliente(ContextoExecucao& contexto, screen::Screen& tela) {
    Statement comando;
    comando << "select desc_tipo_clie from tipo_clie where data_desa is null "
            << "order by desc_tipo_clie";
    Preenche(contexto, comando, "desc_tipo_clie", ListaDa(tela, "cboTipoCli"));
}

void PreencheCargos(ContextoExecucao& contexto, const QString& prefixo, ListField& lista) {
    Statement comando;
    comando << "select desc_carg from carg where data_desa is null "
            << "and desc_carg like '" << Trim(prefixo) << "%' "
            << "order by desc_carg";
    Preenche(contexto, comando, "desc_carg", lista);
}

void PreencheAtividades(ContextoExecucao& contexto, const QString& prefixo, ListField& lista) {
    Statement comando;
    comando << "select desc_ativ from ativ where data_desa is null ";
    if (const QString texto = Trim(prefixo); !texto.isEmpty())
        comando << "and desc_ativ like '" << texto << "%' ";
    comando << "order by desc_ativ";
    Preenche(contexto, comando, "desc_ativ", lista);
}

void PreencheVendedores(ContextoExecucao& contexto, const QString& prefixo, ListField& lista) {
    Statement comando;
    comando << "select pess.nome_conh from pess, vend "
            << "where "
            << "pess.idpess = vend.idpess ";
    if (const QString texto = Trim(prefixo); !texto.isEmpty())
        comando << "and pess.nome_conh like '" << texto << "%' ";
    comando << "and vend.data_desa is null "
            << "order by pess.nome_conh";
    lista.clear();
    for (Recordset registros = AbreLeitura(contexto, comando); !registros.Eof(); registros.MoveNext())
        if (const data::Value nome = registros.Fields("NOME_CONH"); !nome.isNull())
            lista.addItem(nome.text());
}

void PreencheTransportadoras(ContextoExecucao& contexto, const QString& prefixo, ListField& lista) {
    Statement comando;
    comando << "select pess.nome_conh from pess, trpt "
            << "where "
            << "pess.idpess = trpt.idpess "
            << "and trpt.data_desa is null "
            << "and pess.nome_conh like '" << Trim(prefixo) << "%' "
            << "order by pess.nome_conh";
    Preenche(contexto, comando, "NOME_CONH", lista);
}

void PreencheTipoProduto(ContextoExecucao& contexto, ListField& lista) {
    Statement comando;
    comando << "select DESC_TIPO_PROD from TIPO_PROD "
            << "where "
            << "data_desa is null";
    Preenche(contexto, comando, "DESC_TIPO_PROD", lista);
}

void PreencheRegimeEspecial(ContextoExecucao& contexto, ListField& lista) {
    Statement comando;
    comando << "select desc_regi_espe_icms from regi_espe_icms "
            << "where "
            << "data_desa is null "
            << "order by desc_regi_espe_icms";
    Preenche(contexto, comando, "Desc_regi_espe_icms", lista);
}

void PreenchePaises(ContextoExecucao& contexto, const QString& texto, ListField& lista) {
    Statement comando;
    comando << "select nome_pais "
            << "from pais  "
            << "where data_desa is null "
            << "AND (pais.nome_pais Like '%" << Trim(texto) << "%') "
            << "order by nome_pais";
    Preenche(contexto, comando, "nome_pais", lista);
}

void PreencheMunicipios(ContextoExecucao& contexto, const QString& uf, const QString& texto, ListField& lista) {
    Statement comando;
    comando << "select * "
            << "from muni_ibge  "
            << "where data_desa is null and uf00_muni_ibge = '" << Trim(uf) << "' "
            << "AND (muni_ibge.desc_muni_ibge Like '%" << Trim(texto) << "%') "
            << "order by desc_muni_ibge";
    Preenche(contexto, comando, "desc_muni_ibge", lista);
}

void PreencheCargosContem(ContextoExecucao& contexto, const QString& texto, ListField& lista) {
    Statement comando;
    comando << "select desc_carg "
            << "from carg  "
            << "where data_desa is null ";
    if (const QString procurado = Trim(texto); !procurado.isEmpty())
        comando << "AND (carg.desc_carg Like '%" << procurado << "%') ";
    comando << "order by desc_carg";
    Preenche(contexto, comando, "desc_carg", lista);
}

void PreencheColecoes(ContextoExecucao& contexto, const QString& texto, ListField& lista) {
    Statement comando;
    comando << "select desc_cole "
            << "from cole "
            << "where data_desa is null "
            << "AND (desc_cole Like '%" << Trim(texto) << "%') "
            << "order by desc_cole";
    Preenche(contexto, comando, "desc_cole", lista);
}

void PreencheUFs(ContextoExecucao& contexto, ListField& lista) {
    Statement comando;
    comando << "SELECT UF00.IDUF00, UF00.CODI_UF00 "
            << "FROM UF00 "
            << "Where (UF00.DATA_DESA Is Null) "
            << "ORDER BY UF00.CODI_UF00";
    lista.clear();
    lista.addItem(u"  "_s);
    for (Recordset registros = AbreLeitura(contexto, comando); !registros.Eof(); registros.MoveNext())
        lista.addItem(registros.Fields("codi_uf00").text());
}

void PreencheTabelasPreco(screen::Screen& tela) {
    ListField& lista = ListaDa(tela, "cboTabelaPrecos");
    lista.clear();
    for (char16_t letra = u'A'; letra <= u'J'; ++letra)
        lista.addItem(u"Tabela "_s + QChar(letra));
}

void PreencheBancosOuCartoes(ContextoExecucao& contexto, const QString& texto, const QString& formaPagamento,
                             ListField& lista) {
    lista.clear();
    const QString aparado = Trim(texto);
    Statement comando;
    if (std::find(formasBancarias.begin(), formasBancarias.end(), formaPagamento) != formasBancarias.end()) {
        comando << "SELECT nome_banc "
                << "FROM Banc "
                << "where data_desa is null ";
        if (comecaComAlgarismo(aparado))
            comando << "and codi_banc like '" << aparado << "%' ";
        else if (!aparado.isEmpty())
            comando << "and nome_banc like '%" << aparado << "%' ";
        comando << "order by nome_banc";
        Preenche(contexto, comando, "nome_banc", lista);
    } else if (formaPagamento == u"CARTAO") {
        comando << "SELECT nome_cart "
                << "FROM cart "
                << "where data_desa is null ";
        if (!aparado.isEmpty())
            comando << "and nome_cart like '%" << aparado << "%' ";
        comando << "order by nome_cart";
        Preenche(contexto, comando, "nome_cart", lista);
    }
}

void PreencheListaClientes(ContextoExecucao& contexto, const QString& texto, ListField& lista) {
    const QString aparado = Trim(texto);
    Statement comando;
    comando << "SELECT PESS.IDPESS, PESS.NOME_PESS, PESS.NOME_CONH, PESS.PSFI_PSJU, PESS.CPF0_CNPJ, CLIE.IDCLIE "
            << "FROM CLIE, PESS "
            << "Where CLIE.IDPESS = PESS.IDPESS "
            << " And (CLIE.DATA_DESA Is Null) ";
    if (comecaComAlgarismo(aparado) || ComecaComoCNPJ(contexto, aparado))
        comando << "AND (PESS.CPF0_CNPJ Like '%" << aparado << "%') ";
    else if (!aparado.isEmpty())
        comando << "AND (PESS.NOME_PESS Like '%" << aparado << "%') ";
    comando << "ORDER BY PESS.NOME_PESS";
    lista.clear();
    for (Recordset registros = AbreLeitura(contexto, comando); !registros.Eof(); registros.MoveNext())
        lista.addItem(AlinhaTexto(registros.Fields("NOME_PESS"), 50, true) + u'|' +
                      AlinhaTexto(registros.Fields("cpf0_cnpj"), 20, true) + u'|' +
                      AlinhaTexto(registros.Fields("IDPESS"), 10, true) + u'|' +
                      AlinhaTexto(registros.Fields("idClie"), 10, true));
}

void PreencheListaProdutos(ContextoExecucao& contexto, const QString& texto, ListField& lista) {
    const QString aparado = Trim(texto);
    Statement comando;
    comando << "select desc_prod, codi_prod, idprod "
            << "from prod  "
            << "where data_desa is null ";
    if (!aparado.isEmpty())
        comando << "AND (prod.desc_prod Like '%" << aparado << "%') ";
    comando << "order by desc_prod";
    lista.clear();
    for (Recordset registros = AbreLeitura(contexto, comando); !registros.Eof(); registros.MoveNext())
        lista.addItem(AlinhaTexto(registros.Fields("desc_prod"), 70, true) + u'|' +
                      AlinhaTexto(registros.Fields("CODI_PROD"), 15, true) + u'|' +
                      AlinhaTexto(registros.Fields("idProd"), 10, true));
}

} // namespace vorta
