#include "search/ConsultaPessoas.h"

#include "base/Literals.h"
#include "base/Text.h"
#include "shared/Vinculos.h"

#include <algorithm>
#include <array>
#include <initializer_list>

namespace vorta {

namespace {

using data::Piece;
using data::Recordset;
using data::Statement;
using Tela = frmBROWSE_PESSOAS;
using Opcao = screen::Option Tela::*;

/// One way to search: the options that choose it, the filter (the text stands between its pieces) and the order. The
/// blanks in front of some orders are part of the statement.
struct FormaBusca {
    Opcao forma;
    Opcao conteudo; ///< none: the way ignores how the text is to be compared
    std::initializer_list<Piece> filtro;
    Piece ordem;
};

constexpr FormaBusca formas[]{
    {&Tela::opCPFCNPJ, nullptr, {"and cpf0_cnpj like '", "%' "}, "order by nome_pess"},
    {&Tela::opNome, &Tela::opQualquerParte, {"and nome_pess like '%", "%' "}, "order by nome_pess"},
    {&Tela::opNome, &Tela::opCampoInteiro, {"and nome_pess = '", "' "}, "order by nome_pess"},
    {&Tela::opNome, &Tela::opInicialCom, {"and nome_pess like '", "%' "}, "order by nome_pess"},
    {&Tela::opFantasia, &Tela::opQualquerParte, {"and nome_conh like '%", "%' "}, "order by nome_conh"},
    {&Tela::opFantasia, &Tela::opCampoInteiro, {"and nome_conh = '", "' "}, "order by nome_conh"},
    {&Tela::opFantasia, &Tela::opInicialCom, {"and nome_conh like '", "%' "}, "order by nome_conh"},
    {&Tela::opCidade, nullptr, {"and cida_coml_pess like '%", "%' "}, "order by nome_conh"},
    {&Tela::opUF, nullptr, {"and uf00_coml_pess = '", "' "}, "order by nome_conh"},
    {&Tela::opRamoAtividade, nullptr, {"AND (ATIV.DESC_ATIV like '%", "%') "}, "order by nome_conh"},
    {&Tela::opTelefone,
     nullptr,
     {"and (tele_0001_pess like '%", "%' or tele_0002_pess like '%", "%' or fax0_0001_pess like '%",
      "%' or fax0_0002_pess like '%", "%')"},
     " order by nome_pess"},
    {&Tela::opCodInterno, nullptr, {"and (idpess like '%", "%')"}, " order by idpess"},
    {&Tela::opCodExterno, nullptr, {"and (pess_codi_exte like '%", "%')"}, " order by pess_codi_exte"},
};

/// The search by branch looks at active persons whatever the check box says, and a person comes once for each branch
/// that matches. Its list lacks the external code, which the grid asks for: a match ends in the error for an unknown
/// column.
constexpr Piece consultaPorRamo =
    "SELECT pess.IDPESS, pess.NOME_PESS, pess.NOME_CONH, pess.PSFI_PSJU, pess.CPF0_CNPJ, pess.RG00_IE00, "
    "pess.ENDE_COML_PESS, pess.BAIR_COML_PESS, pess.CIDA_COML_PESS, pess.CEP0_COML_PESS, pess.UF00_COML_PESS, "
    "pess.ENDE_ENTG_PESS, pess.BAIR_ENTG_PESS, pess.CIDA_ENTG_PESS, pess.CEP0_ENTG_PESS, pess.UF00_ENTG_PESS, "
    "pess.TELE_0001_PESS, pess.TELE_0002_PESS, pess.EMAI_PESS, pess.HTTP_PESS, pess.ENDE_COBR_PESS, "
    "pess.BAIR_COBR_PESS, pess.CIDA_COBR_PESS, pess.CEP0_COBR_PESS, pess.UF00_COBR_PESS, pess.FAX0_0001_PESS, "
    "pess.FAX0_0002_PESS, pess.DATA_ANIV, pess.SEXO, pess.DATA_INCL, pess.USER_INCL, pess.DATA_DESA, pess.USER_DESA, "
    "ATIV.DESC_ATIV, "
    "pess.idCLIE, pess.idTRPT, pess.idVEND, pess.idMOTO, pess.idDECO, pess.idFORN, pess.idARQT "
    "FROM ATIV, pess, PESS_ATIV "
    "WHERE PESS_ATIV.IDPESS = pess.IDPESS AND PESS_ATIV.IDATIV = ATIV.IDATIV "
    "AND (pess.DATA_DESA Is Null) ";

/// The columns that the first grid columns show; column 6, between the date and the external code, belongs to the role.
constexpr std::array<Piece, 6> colunasGrid{"IDPESS",    "cpf0_cnpj",      "NOME_PESS",
                                           "NOME_CONH", "TELE_0001_PESS", "data_desa"};
constexpr Piece codigoExterno = "pess_codi_exte";

bool escolhida(const Tela& tela, Opcao opcao) {
    return !opcao || (tela.*opcao).value();
}

const FormaBusca* formaEscolhida(const Tela& tela) {
    const auto* achada = std::find_if(std::begin(formas), std::end(formas), [&](const FormaBusca& linha) {
        return escolhida(tela, linha.forma) && escolhida(tela, linha.conteudo);
    });
    return achada == std::end(formas) ? nullptr : achada;
}

void acrescentaFiltro(Statement& comando, std::initializer_list<Piece> filtro, const QString& texto) {
    const Piece* peca = filtro.begin();
    comando << *peca;
    while (++peca != filtro.end())
        comando << texto << *peca;
}

bool semVinculo(const Recordset& registros) {
    return std::none_of(papeis.begin(), papeis.end(), [&](const Papel& papel) {
        const data::Value id = registros.Fields(papel.chave.utf8());
        return !id.isNull() && id.number() > 0;
    });
}

/// The role whose id the column headed "idClie" shows. The supplier's stands there too: callers that want a supplier
/// read it from that column.
const Papel* papelDaColuna8(const FiltroPapel& filtro) {
    if (filtro.prospect)
        return &PapelDe(TipoPapel::Cliente);
    return filtro.papel && filtro.papel->mostraIdNaBusca ? filtro.papel : nullptr;
}

} // namespace

Statement MontaConsultaPessoas(ContextoExecucao& contexto, const frmBROWSE_PESSOAS& tela) {
    const QString texto = Trim(tela.cboCod.text());
    const FormaBusca* forma = formaEscolhida(tela);
    Statement comando("SELECT * FROM pess ");
    if (tela.chkVisualiza.checked()) {
        contexto.VinculoAtual = u"S"_s;
        comando << "WHERE (Not DATA_DESA Is Null) ";
    } else {
        contexto.VinculoAtual = u"N"_s;
        comando << "WHERE data_desa is null ";
    }
    if (!forma)
        return comando;
    if (forma->forma == &Tela::opRamoAtividade)
        comando = Statement(consultaPorRamo);
    if (!texto.isEmpty())
        acrescentaFiltro(comando, forma->filtro, texto);
    comando << forma->ordem;
    return comando;
}

FiltroPapel FiltroEscolhido(const frmBROWSE_PESSOAS& tela) {
    if (tela.opProspect.value())
        return {.prospect = true};
    for (const Papel& papel : papeis)
        if (tela.opcaoDe(papel).value())
            return {.papel = &papel};
    return {};
}

std::vector<Piece> ColunasLidas(const FiltroPapel& filtro) {
    std::vector<Piece> colunas(colunasGrid.begin(), colunasGrid.end());
    colunas.push_back(codigoExterno);
    if (filtro.prospect)
        for (const Papel& papel : papeis)
            colunas.push_back(papel.chave);
    return colunas;
}

std::optional<QStringList> LinhaPessoa(ContextoExecucao& contexto, const Recordset& registros,
                                       const FiltroPapel& filtro) {
    QString idPapel;
    if (filtro.papel) {
        idPapel = Vinculo(contexto, *filtro.papel, registros.Fields("IDPESS").text());
        if (Val(idPapel) <= 0)
            return {};
    } else if (filtro.prospect) {
        if (!semVinculo(registros))
            return {};
        idPapel = u"0"_s;
    }
    QStringList linha;
    for (const Piece& coluna : colunasGrid)
        linha << registros.Fields(coluna.utf8()).textOr({});
    linha << idPapel << registros.Fields(codigoExterno.utf8()).textOr({});
    if (const Papel* papel = papelDaColuna8(filtro))
        linha << Vinculo(contexto, *papel, registros.Fields("IDPESS").text());
    return linha;
}

} // namespace vorta
