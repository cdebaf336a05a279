#include "base/Literals.h"
#include "base/Text.h"
#include "launch/AcessoDados.h"
#include "person/ComandosPessoa.h"
#include "person/ContatosPessoa.h"
#include "person/frmPessoas.h"
#include "shared/Insercao.h"
#include "shared/TextoEntrada.h"

namespace vorta {

void frmPessoas::cmdSALVAR_Click() {
    contatos.MarcaForaDaLista();
    lblRamoFora.setText(MarcaForaDaLista(u"Ramo"_s, Trim(cboAtividades.text())));
    TrimCamposTexto(*this);
    if (!ValidaSalvar())
        return;
    BloqueiaCampos();
    if (modo() == Modo::Inclusao)
        GravaInclusao();
    else if (modo() == Modo::Alteracao)
        GravaAlteracao();
    BloqueiaCampos();
    PosicionaBotoes();
}

void frmPessoas::GravaInclusao() {
    setPointer(screen::Pointer::Hourglass);
    contexto_.principal().BeginTrans();
    const std::optional<qint32> chave = ChaveDoGerador(contexto_, data::Piece("GEN_PESS"));
    EnviaComando(contexto_, MontaInsertPessoa(contexto_, *this, chave));
    txtRowID.setText(QString::number(chave ? *chave : UltimoIdentity(contexto_)));
    GravaListas(txtRowID.text());
    rascunho_.VaiGravar(txtRowID.text());
    TerminaGravacao();
}

void frmPessoas::GravaAlteracao() {
    setPointer(screen::Pointer::Hourglass);
    contexto_.principal().BeginTrans();
    EnviaComando(contexto_, MontaUpdatePessoa(contexto_, *this));
    EnviaComando(contexto_, MontaDeleteAtividades(*this));
    EnviaComando(contexto_, contatos.MontaDeleteContatos(txtRowID.text()));
    GravaListas(txtRowID.text());
    TerminaGravacao();
}

void frmPessoas::GravaListas(const QString& idpess) {
    for (int linha = 1; linha < FlexAtividades.Rows(); ++linha)
        EnviaComando(contexto_, MontaInsertAtividade(*this, idpess, linha));
    for (int linha = 1; linha < contatos.Flex.Rows(); ++linha)
        EnviaComando(contexto_, contatos.MontaInsertContato(idpess, linha));
}

void frmPessoas::TerminaGravacao() {
    contexto_.principal().CommitTrans();
    rascunho_.Descarta();
    setPointer(screen::Pointer::Default);
    ConcluiOperacao();
}

} // namespace vorta
