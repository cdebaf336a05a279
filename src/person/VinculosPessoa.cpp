#include "person/VinculosPessoa.h"

#include "base/Format.h"
#include "base/Literals.h"
#include "base/Text.h"
#include "launch/AcessoDados.h"
#include "person/frmPessoas.h"
#include "shared/Insercao.h"
#include "shared/TextoEntrada.h"
#include "shared/Vinculos.h"

#include <array>

namespace vorta {

namespace {

using data::Piece;
using data::Statement;
using screen::Answer;
using screen::Buttons;
using screen::Icon;

/// A column that a new role row gets besides the common ones.
struct ColunaInicial {
    Piece coluna;
    const char* valor;
};

/// A role that a button of the person screen links at once, or opens the screen of.
struct VinculoDireto {
    TipoPapel papel;
    screen::Button frmPessoas::*botao;
    const char* palavra;   ///< in the questions
    const char* parametro; ///< "N" links at once
    Piece tabela;
    Piece chave;
    Piece colunaPess;
    std::optional<Piece> gerador; ///< none where the database fills the key
    const char* tela;
    std::span<const ColunaInicial> iniciais = {};
};

constexpr std::array iniciaisCliente{ColunaInicial{"idTipo_Clie", "0"}};
constexpr std::array iniciaisVendedor{ColunaInicial{"valo_sala", "0.00"}, ColunaInicial{"perc_pool", "0.00"},
                                      ColunaInicial{"perc_coms", "0.00"}};

constexpr std::array vinculos{
    VinculoDireto{TipoPapel::Cliente, &frmPessoas::cmdCliente, "Cliente", "PESS_TELA_CLIENTE", "Clie", "idClie",
                  "idCLIE", Piece("GEN_CLIE"), "frmCliente", iniciaisCliente},
    VinculoDireto{TipoPapel::Fornecedor, &frmPessoas::cmdFornecedor, "Fornecedor", "PESS_TELA_FORNECEDOR", "forn",
                  "idForn", "idFORN", Piece("GEN_FORN"), "frmFornecedor"},
    VinculoDireto{TipoPapel::Transportadora, &frmPessoas::cmdTransportadora, "Transportadora",
                  "PESS_TELA_TRANSPORTADORA", "TRPT", "idtrpt", "idTRPT", Piece("GEN_TRPT"), "frmTransportadora"},
    VinculoDireto{TipoPapel::Vendedor, &frmPessoas::cmdVendedor, "Vendedor", "PESS_TELA_VENDEDOR", "Vend", "idvend",
                  "idVEND", Piece("GEN_VEND"), "frmVendedor", iniciaisVendedor},
    VinculoDireto{TipoPapel::Arquiteto, &frmPessoas::cmdArquiteto, "Arquiteto", "PESS_TELA_ARQUITETO", "arqt", "idarqt",
                  "idARQT", std::nullopt, "frmArquiteto"},
    VinculoDireto{TipoPapel::Decorador, &frmPessoas::cmdDecorador, "Decorador", "PESS_TELA_DECORADOR", "Deco", "iddeco",
                  "idDECO", std::nullopt, "frmDecorador"},
};

/// A person that has never been saved has no key to link to.
bool SemPessoa(const frmPessoas& tela) {
    return Val(tela.txtRowID.text()) <= 0;
}

bool Confirma(frmPessoas& tela, const QString& pergunta) {
    return tela.program().MsgBox({pergunta, tela.caption(), Icon::None, Buttons::YesNo}) == Answer::Yes;
}

void Informa(frmPessoas& tela, const QString& texto) {
    tela.program().MsgBox({texto, tela.caption(), Icon::Information, Buttons::OK});
}

void AbreTela(frmPessoas& tela, const char* nome) {
    tela.contexto().IdPessoaVinculo = tela.txtRowID.text();
    tela.contexto().MostraTela(QString::fromLatin1(nome));
}

Statement MontaInsertVinculo(const frmPessoas& tela, const VinculoDireto& vinculo) {
    ContextoExecucao& contexto = tela.contexto();
    Insercao insercao(vinculo.tabela);
    insercao.incluiChave(Statement(vinculo.chave), ChaveDoGerador(contexto, vinculo.gerador));
    insercao.inclui("idpess", tela.txtRowID.text());
    for (const ColunaInicial& inicial : vinculo.iniciais)
        insercao.inclui(inicial.coluna, QString::fromLatin1(inicial.valor));
    insercao.inclui("codi_empr", tela.lblCodiEmpresa.text());
    return insercao.encerra(contexto);
}

/// Always a new row, also when an earlier link lies deactivated. The key is asked of the connection on every engine.
void CriaVinculo(frmPessoas& tela, const VinculoDireto& vinculo) {
    if (!Confirma(tela, u"Deseja Criar um Vínculo de %1?"_s.arg(QLatin1StringView(vinculo.palavra))))
        return;
    ContextoExecucao& contexto = tela.contexto();
    EnviaComando(contexto, MontaInsertVinculo(tela, vinculo));
    const qint32 id = UltimoIdentity(contexto);
    GravaVinculoPess(contexto, tela.txtRowID.text(), vinculo.colunaPess, QString::number(id));
    Informa(tela, u"Vínculo estabelecido com sucesso!"_s);
}

void RemoveVinculo(frmPessoas& tela, const VinculoDireto& vinculo) {
    if (!Confirma(tela, u"Deseja Exclui o Vínculo de %1?"_s.arg(QLatin1StringView(vinculo.palavra))))
        return;
    ContextoExecucao& contexto = tela.contexto();
    const QString id = Vinculo(contexto, vinculo.papel, tela.txtRowID.text());
    Statement& comando = contexto.SqlComando;
    comando.clear();
    comando << "UPDATE " << vinculo.tabela << " SET "
            << "user_desa='" << contexto.CodigoUsuario << "', "
            << "data_desa='" << FormatDateSql(contexto.hoje()) << "' "
            << "WHERE (" << vinculo.chave << "=" << id << ")";
    ExecutaSemAcentos(contexto, comando);
    LimpaVinculoPess(contexto, tela.txtRowID.text(), vinculo.colunaPess);
    Informa(tela, u"Vínculo excluído com sucesso!"_s);
}

void cmdPapel_Click(frmPessoas& tela, const VinculoDireto& vinculo) {
    if (SemPessoa(tela))
        return Informa(tela, u"Selecione ou Salve um Registro antes de vincular!"_s);
    ContextoExecucao& contexto = tela.contexto();
    contexto.VinculoAtual = u"N"_s;
    if (LeParametroEmpresa(contexto, QString::fromLatin1(vinculo.parametro)) != u"N")
        AbreTela(tela, vinculo.tela);
    else if (Val(Vinculo(contexto, vinculo.papel, tela.txtRowID.text())) == 0)
        CriaVinculo(tela, vinculo);
    else
        RemoveVinculo(tela, vinculo);
    AtualizaIndicadoresVinculo(contexto, tela);
}

/// A driver is never linked directly; his screen refreshes the buttons by itself.
void cmdMotorista_Click(frmPessoas& tela) {
    if (SemPessoa(tela)) {
        tela.program().MsgBox(u"Selecione um Registro antes de vincular!"_s);
        return;
    }
    AbreTela(tela, "frmMotorista");
}

} // namespace

void LigaVinculos(frmPessoas& tela) {
    for (const VinculoDireto& vinculo : vinculos)
        (tela.*vinculo.botao).Click = [&tela, &vinculo] { cmdPapel_Click(tela, vinculo); };
    tela.cmdMotorista.Click = [&tela] { cmdMotorista_Click(tela); };
}

} // namespace vorta
