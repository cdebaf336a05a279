#include "base/Literals.h"
#include "launch/AcessoDados.h"
#include "person/ComandosPessoa.h"
#include "person/ContatosPessoa.h"
#include "person/frmPessoas.h"
#include "shared/TextoEntrada.h"

namespace vorta {

void frmPessoas::cmdSALVAR_Click() {
    TrimCamposTexto(*this);
    if (!ValidaSalvar())
        return;
    BloqueiaCampos();
    if (contexto_.ModoTela == u"I")
        GravaInclusao();
    else if (contexto_.ModoTela == u"A")
        GravaAlteracao();
    BloqueiaCampos();
    PosicionaBotoes();
}

void frmPessoas::GravaInclusao() {
    setPointer(screen::Pointer::Hourglass);
    contexto_.principal().BeginTrans();
    qint32 chave = contexto_.isFirebird() ? ProximoGenerator(contexto_, "GEN_PESS") : 0;
    MontaInsertPessoa(contexto_, *this, chave);
    ExecutaSemAcentos(contexto_, contexto_.SqlComando);
    if (!contexto_.isFirebird())
        chave = UltimoIdentity(contexto_);
    txtRowID.setText(QString::number(chave));
    GravaListas(txtRowID.text());
    TerminaGravacao();
}

void frmPessoas::GravaAlteracao() {
    setPointer(screen::Pointer::Hourglass);
    contexto_.principal().BeginTrans();
    MontaUpdatePessoa(contexto_, *this);
    ExecutaSemAcentos(contexto_, contexto_.SqlComando);
    ApagaAtividades(*this);
    ExecutaSemAcentos(contexto_, contexto_.SqlComando);
    ApagaContatos(*this);
    ExecutaSemAcentos(contexto_, contexto_.SqlComando);
    GravaListas(txtRowID.text());
    TerminaGravacao();
}

void frmPessoas::GravaListas(const QString& idpess) {
    for (int linha = 1; linha < FlexAtividades.Rows(); ++linha) {
        InsereAtividade(*this, idpess, linha);
        ExecutaSemAcentos(contexto_, contexto_.SqlComando);
    }
    for (int linha = 1; linha < Flex.Rows(); ++linha) {
        InsereContato(*this, idpess, linha);
        ExecutaSemAcentos(contexto_, contexto_.SqlComando);
    }
}

void frmPessoas::TerminaGravacao() {
    contexto_.principal().CommitTrans();
    setPointer(screen::Pointer::Default);
    program().MsgBox(u"Registro Gravado com sucesso!"_s);
    contexto_.ModoTela = u" "_s;
}

} // namespace vorta
