#include "shared/Consultas.h"

#include "base/Literals.h"
#include "base/Text.h"
#include "launch/AcessoDados.h"

#include <array>

namespace vorta {

namespace {

using data::Recordset;
using data::Statement;

/// One column of the first row as text; `ausente` without a row, and for a null when the lookup is null-safe.
QString Texto(ContextoExecucao& contexto, const Statement& sql, const char* coluna, const QString& ausente = {},
              bool aceitaNulo = false) {
    Recordset registros = AbreLeitura(contexto, sql);
    if (registros.Eof())
        return ausente;
    const data::Value valor = registros.Fields(coluna);
    return aceitaNulo ? valor.textOr(ausente) : valor.text();
}

/// The same as a whole number, 0 when nothing is found.
qint32 Inteiro(ContextoExecucao& contexto, const Statement& sql, const char* coluna, bool aceitaNulo = false) {
    Recordset registros = AbreLeitura(contexto, sql);
    if (registros.Eof())
        return 0;
    const data::Value valor = registros.Fields(coluna);
    return aceitaNulo && valor.isNull() ? 0 : valor.toInt32();
}

/// Statements that go out as they are written, not in capitals.
qint32 InteiroComoEscrito(ContextoExecucao& contexto, const Statement& sql, const char* coluna) {
    Recordset registros = AbreLeituraComoEscrita(contexto, sql);
    return registros.Eof() ? 0 : registros.Fields(coluna).toInt32();
}

QString TextoComoEscrito(ContextoExecucao& contexto, const Statement& sql, const char* coluna) {
    Recordset registros = AbreLeituraComoEscrita(contexto, sql);
    return registros.Eof() ? QString() : registros.Fields(coluna).text();
}

constexpr bool nuloVazio = true;

/// The columns of `DadosCliente` in the order of its result.
constexpr std::array colunasDadosCliente{
    "NOME_PESS",      "ENDE_COML_PESS", "CIDA_COML_PESS", "UF00_COML_PESS",      "CEP0_COML_PESS", "RG00_IE00",
    "cpf0_cnpj",      "BAIR_COML_PESS", "NUME_COML_PESS", "CODI_MUNI_COML_PESS", "TELE_0001_PESS", "psFI_psJU",
    "CMPL_COML_PESS", "EMAI_PESS",      "TELE_0002_PESS", "FAX0_0002_PESS",      "NOME_CONH",      "IDPESS"};

} // namespace

qint32 IdColecao(ContextoExecucao& contexto, const QString& descricao) {
    return Inteiro(contexto, Statement() << "select idcole from cole where desc_cole='" << descricao << "'", "idcole");
}

qint32 IdProdutoPorCodigo(ContextoExecucao& contexto, const QString& codigo) {
    return Inteiro(contexto, Statement() << "select idprod from prod where codi_prod='" << codigo << "'", "idProd");
}

qint32 IdBanco(ContextoExecucao& contexto, const QString& nome) {
    return Inteiro(contexto, Statement() << "select idBanc from Banc where nome_Banc='" << nome << "'", "idbanc");
}

qint32 IdTipoCliente(ContextoExecucao& contexto, const QString& descricao) {
    return Inteiro(contexto,
                   Statement() << "select idtipo_clie from tipo_clie where desc_tipo_clie='" << descricao << "'",
                   "idtipo_clie");
}

qint32 IdTipoProduto(ContextoExecucao& contexto, const QString& descricao) {
    return Inteiro(contexto,
                   Statement() << "select idTIPO_PROD from TIPO_PROD where DESC_TIPO_PROD='" << Trim(descricao) << "'",
                   "idtipo_prod");
}

qint32 IdTransportadora(ContextoExecucao& contexto, const QString& nomeConhecido) {
    return Inteiro(contexto,
                   Statement() << "select trpt.idtrpt "
                               << "from trpt, pess "
                               << "where pess.idpess = trpt.idpess "
                               << "and pess.nome_conh='" << nomeConhecido << "'",
                   "idTRPT");
}

qint32 IdFornecedor(ContextoExecucao& contexto, const QString& nome) {
    return Inteiro(contexto,
                   Statement() << "select forn.idforn "
                               << "from forn, pess "
                               << "where pess.idpess = forn.idpess "
                               << "and pess.nome_pess='" << nome << "'",
                   "idForn");
}

qint32 IdVendedor(ContextoExecucao& contexto, const QString& nomeConhecido) {
    return Inteiro(contexto,
                   Statement() << "select vend.idvend "
                               << "from vend, pess "
                               << "where pess.idpess = vend.idpess "
                               << "and pess.nome_conh='" << nomeConhecido << "'",
                   "idvend");
}

qint32 RetornaIdPessoaPorNome(ContextoExecucao& contexto, const QString& nome) {
    return Inteiro(contexto,
                   Statement() << "select idpess "
                               << "from pess "
                               << "where pess.nome_pess='" << nome << "'",
                   "IDPESS");
}

qint32 RetornaIdPessoaPorFantasia(ContextoExecucao& contexto, const QString& nome) {
    return Inteiro(contexto,
                   Statement() << "select idpess "
                               << "from pess "
                               << "where pess.nome_conh='" << nome << "'",
                   "IDPESS");
}

qint32 IdPessoaPorCodigoExterno(ContextoExecucao& contexto, const QString& codigo) {
    return Inteiro(contexto,
                   Statement() << "select idpess, PESS_CODI_EXTE "
                               << "from pess "
                               << "where pess.pess_codi_exte='" << codigo << "'",
                   "IDPESS", nuloVazio);
}

qint32 IdAtividade(ContextoExecucao& contexto, const QString& descricao) {
    return InteiroComoEscrito(contexto,
                              Statement() << "SELECT ativ.idativ, ativ.desc_ativ "
                                          << "FROM ativ "
                                          << "WHERE (ativ.desc_ativ='" << descricao << "')",
                              "idAtiv");
}

QString IdRegimeEspecial(ContextoExecucao& contexto, const QString& descricao) {
    return Texto(contexto,
                 Statement() << "select idregi_espe_icms from regi_espe_icms "
                             << "where "
                             << "desc_regi_espe_icms = '" << descricao << "'",
                 "idregi_espe_icms");
}

QString DescricaoAtividade(ContextoExecucao& contexto, qint16 id) {
    return TextoComoEscrito(contexto,
                            Statement() << "SELECT desc_ativ "
                                        << "From ativ "
                                        << "Where idativ = " << id,
                            "desc_ativ");
}

QString NomeBanco(ContextoExecucao& contexto, const QString& id) {
    return Texto(contexto, Statement() << "select nome_Banc from Banc where idBanc=" << id, "nome_banc", u"0"_s);
}

QString NumeroNota(ContextoExecucao& contexto, const QString& id) {
    return Texto(contexto, Statement() << "select nume_nff from nff where idnff =" << id, "nume_nff", u"0"_s);
}

QString NomePessoa(ContextoExecucao& contexto, const QString& id) {
    return Texto(contexto, Statement() << "select nome_pess from pess where idpess=" << id, "NOME_PESS");
}

QString DescricaoTipoCliente(ContextoExecucao& contexto, const QString& id) {
    return Texto(contexto, Statement() << "select desc_tipo_clie from tipo_clie where idtipo_clie=" << id,
                 "desc_tipo_clie");
}

QString ConhecidoTransportadora(ContextoExecucao& contexto, const QString& id) {
    return Texto(contexto,
                 Statement() << "select pess.nome_conh from pess, trpt "
                             << "where "
                             << "pess.idpess = trpt.idpess "
                             << "and trpt.idtrpt =" << id,
                 "NOME_CONH");
}

QString ConhecidoVendedor(ContextoExecucao& contexto, const QString& id) {
    return Texto(contexto,
                 Statement() << "select pess.nome_conh from pess, vend "
                             << "where "
                             << "pess.idpess = vend.idpess "
                             << "and vend.idvend =" << id,
                 "NOME_CONH");
}

QString DescricaoRegimeEspecial(ContextoExecucao& contexto, const QString& id) {
    return Texto(contexto,
                 Statement() << "select desc_regi_espe_icms from regi_espe_icms "
                             << "where "
                             << "idregi_espe_icms =" << id,
                 "Desc_regi_espe_icms");
}

qint32 MarcaProduto(ContextoExecucao& contexto, const QString& id) {
    return Inteiro(contexto, Statement() << "select idmarc from prod where idprod='" << id << "'", "idmarc", nuloVazio);
}

QString CodigoExternoPessoa(ContextoExecucao& contexto, const QString& id) {
    return Texto(contexto,
                 Statement() << "select idpess, PESS_CODI_EXTE "
                             << "from pess "
                             << "where pess.idpess='" << id << "'",
                 "pess_codi_exte", {}, nuloVazio);
}

QString LeUfEmpresa(ContextoExecucao& contexto) {
    Recordset registros = AbreLeituraComoEscrita(contexto, Statement() << "SELECT UF00_COML_EMPR "
                                                                       << "FROM EMPR "
                                                                       << "Where (EMPR.DATA_DESA Is Null)");
    return registros.Eof() ? QString() : registros.Fields("UF00_COML_EMPR").textOr({});
}

QString TabelaPrecoCliente(ContextoExecucao& contexto, const QString& idclie) {
    return Texto(contexto,
                 Statement() << "select tabe_prec "
                             << "from pess, clie "
                             << "where pess.idpess = clie.idpess "
                             << "and clie.idclie=" << idclie,
                 "tabe_prec", u"0"_s, nuloVazio);
}

QString VendedorCliente(ContextoExecucao& contexto, const QString& idclie) {
    return Texto(contexto,
                 Statement() << "select pess.idvend "
                             << "from pess, clie "
                             << "where pess.idpess = clie.idpess "
                             << "and clie.idclie=" << idclie,
                 "idvend", u"0"_s, nuloVazio);
}

QString RetornaDocumentoPessoa(ContextoExecucao& contexto, const QString& id, const QString& nome) {
    Statement sql = Statement() << "select cpf0_cnpj "
                                << "from pess ";
    if (id.isEmpty())
        sql << "where pess.nome_pess='" << nome << "'";
    else
        sql << "where pess.idPess='" << id << "'";
    return Texto(contexto, sql, "cpf0_cnpj", {}, nuloVazio);
}

QString CodigoMunicipio(ContextoExecucao& contexto, QString& cidade, const QString& uf) {
    if (cidade == u"SAO PAULO")
        cidade = u"São Paulo"_s;
    return Texto(contexto,
                 Statement() << "select codi_muni_ibge from muni_ibge where desc_muni_ibge = '" << Trim(cidade)
                             << "' and uf00_muni_ibge = '" << Trim(uf) << "'",
                 "codi_muni_ibge");
}

bool ClienteExiste(ContextoExecucao& contexto, const QString& id) {
    return !AbreLeituraComoEscrita(contexto, Statement() << "SELECT * "
                                                         << "From clie "
                                                         << "WHERE idClie=" << id)
                .Eof();
}

bool CepAtivo(ContextoExecucao& contexto) {
    return Texto(contexto, Statement() << "select STAT_CEP8 from empr where data_desa is null", "stat_cep8", {},
                 nuloVazio) == u"S";
}

QString DadosCliente(ContextoExecucao& contexto, const QString& idclie) {
    Recordset registros = AbreLeitura(
        contexto,
        Statement()
            << "select pess.nome_pess, pess.nome_conh, pess.ende_coml_pess, pess.cida_coml_pess, pess.uf00_coml_pess, "
               "pess.idpess, "
            << "pess.cep0_coml_pess, pess.rg00_ie00, pess.cpf0_cnpj, pess.bair_coml_pess, pess.NUME_COML_PESS, "
               "CMPL_COML_PESS, pess.CODI_MUNI_COML_PESS, pess.TELE_0001_PESS, pess.PSFI_PSJU, pess.EMAI_PESS, "
               "pess.TELE_0002_PESS, pess.FAX0_0002_PESS "
            << "from clie, pess "
            << "where pess.idpess = clie.idpess "
            << "and clie.idclie = '" << idclie << "'");
    if (registros.Eof())
        return QString(static_cast<qsizetype>(colunasDadosCliente.size()), u'^');
    QString campos;
    for (const char* coluna : colunasDadosCliente)
        campos += registros.Fields(coluna).textOr({}) + u'^';
    return campos;
}

} // namespace vorta
