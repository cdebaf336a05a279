#include "roles/TelaPapel.h"

#include "base/Format.h"
#include "base/Literals.h"
#include "base/Text.h"
#include "launch/AcessoDados.h"
#include "launch/Lancamento.h"
#include "shared/Capacidade.h"
#include "shared/Consultas.h"
#include "shared/Preenchimento.h"
#include "shared/TextoEntrada.h"
#include "shared/ValidaCampos.h"
#include "shared/Vinculos.h"

namespace vorta {

namespace {

using data::Recordset;
using data::Statement;
using screen::Buttons;
using screen::Field;
using screen::Icon;

const QString telaPessoas = u"frmPessoas"_s;

/// The line that tells the mode.
QString Aviso(Modo modo) {
    switch (modo) {
    case Modo::Inclusao:
        return u"O Modo <INCLUSÃO> está ATIVO"_s;
    case Modo::Alteracao:
        return u"O Modo <ALTERAÇÃO> está ATIVO"_s;
    case Modo::Ocioso:
        break;
    }
    return u"Selecione Um Registro Para Alterar/Desativar ou Reativar"_s;
}

QString DataDaLinha(const data::Value& valor) {
    return valor.isNull() ? QString() : FormatDate(valor.date().date());
}

} // namespace

TelaPapel::TelaPapel(ContextoExecucao& contexto, TipoPapel papel, const RegrasTelaPapel& regras)
    : TelaEdicao(
          contexto, QString::fromLatin1(PapelDe(papel).tela),
          {.tabela = PapelDe(papel).tabela, .chave = PapelDe(papel).chave, .primeiroCampo = regras.primeiroCampo}),
      lblRowId(this, regras.rotuloId), papel_(PapelDe(papel)), regras_(regras) {
    txtRowID.selectsOnFocus = true;
    txtRowID.enterMovesOn = true;
    txtRowID.setLocked(true);
    txtDTDesativa.setLocked(true);
    cmdPESQUISAR.Click = [this] { cmdPESQUISAR_Click(); };
    LigaOperacoes();
    chkVisualiza.Click = [this] { chkVisualiza_Click(); };
    if (regras.grupo.confereCodigo)
        txtRowID.LostFocus = [this] { txtRowID_LostFocus(); };
}

void TelaPapel::Registro(std::initializer_list<Field*> campos, std::initializer_list<Field*> numericos) {
    registro_ = campos;
    numericos_ = numericos;
    for (Field* campo : registro_)
        campo->enterMovesOn = true;
    for (Field* campo : numericos_) {
        campo->enterMovesOn = true;
        campo->capacity = capacidade::valor;
    }
}

void TelaPapel::CampoValor(Field& campo) {
    campo.selectsOnFocus = true;
    campo.capacity = capacidade::valor;
    campo.LostFocus = [&campo] { campo.setText(FormatAmountText(campo.text())); };
}

void TelaPapel::ZeraVazios(std::initializer_list<Field*> valores) {
    for (Field* valor : valores)
        if (RTrim(valor->text()).isEmpty())
            valor->setText(FormatAmount(0));
}

void TelaPapel::DataCredencial(screen::MaskedField& campo) {
    campo.selectsOnFocus = true;
    campo.LostFocus = [this, &campo] {
        if (IsDate(campo.text()) || campo.text() == campo.blank())
            return;
        RecusaData(campo);
    };
}

void TelaPapel::Load() {
    for (Field* campo : fields())
        if (campo->capacity == 0)
            campo->capacity = capacidade::texto;
    CentralizaForm(*this);
    setCaption(TituloTela(contexto_, QString::fromLatin1(regras_.sufixo)));
    BotoesOcioso();
    BloqueiaCampos();
    LimpaCampos();
    ApagaMarcas();
    txtRowID.setText(contexto_.IdPessoaVinculo);
    lblPessoa.setText(NomePessoa(contexto_, contexto_.IdPessoaVinculo));
    if (contatos_)
        PreencheCargos(contexto_, {}, contatos_->cboTipoContato);
    cmdPESQUISAR_Click();
    MostraModo(Modo::Ocioso);
}

void TelaPapel::QueryUnload() {
    if (regras_.grupo.atualizaPessoas)
        AtualizaIndicadoresVinculo(contexto_, contexto_.Tela(telaPessoas));
}

RegrasContatos TelaPapel::regrasContatos() const {
    return {.tabela = papel_.contatos.value(),
            .chaveDono = papel_.chave,
            .campoAniversario = "mskDtNasc",
            .aniversario = regras_.grupo.entradaConferida ? ConfereAniversario::AoSair : ConfereAniversario::Nunca,
            .nomeEmMaiusculas = regras_.grupo.entradaConferida,
            .dataComando = regras_.grupo.dataComando};
}

void TelaPapel::MostraModo(Modo modo) {
    lblAviso.setText(Aviso(modo));
}

void TelaPapel::ApagaMarcas() {
    if (contatos_)
        contatos_->ApagaMarca();
}

void TelaPapel::BloqueiaCampos() {
    BloqueiaCampo(txtRowID);
    BloqueiaCampo(txtDTDesativa);
    for (const std::vector<Field*>* campos : {&registro_, &numericos_})
        for (Field* campo : *campos)
            BloqueiaCampo(*campo);
    if (contatos_)
        contatos_->Bloqueia();
}

void TelaPapel::LiberaCampos() {
    for (const std::vector<Field*>* campos : {&registro_, &numericos_})
        for (Field* campo : *campos)
            LiberaCampo(*campo);
    if (contatos_)
        contatos_->Libera();
    txtDTDesativa.setLocked(true);
    txtDTDesativa.setBackground(screen::colour::Free);
}

void TelaPapel::LimpaCampos() {
    if (contatos_) {
        contatos_->PreparaGridContatos();
        contatos_->LimpaEntrada();
    }
    for (Field* campo : registro_) {
        if (auto* mascara = dynamic_cast<screen::MaskedField*>(campo))
            LimpaMascara(*mascara);
        else
            campo->setText({});
    }
    for (Field* campo : numericos_)
        campo->setText(u"0"_s);
    if (regras_.grupo.limpaDesativacao)
        txtDTDesativa.setText({});
}

void TelaPapel::cmdPESQUISAR_Click() {
    if (Trim(txtRowID.text()).isEmpty())
        return;
    Statement& consulta = contexto_.SqlConsulta;
    consulta.clear();
    consulta << "SELECT ";
    if (regras_.buscaQualificada)
        consulta << papel_.tabela << ".";
    consulta << papel_.chave << " "
             << "FROM " << papel_.tabela << ", pess "
             << "WHERE pess.idpess = " << papel_.tabela << ".idpess "
             << "and pess.idpess=" << txtRowID.text();
    contexto_.RecordsetComum = AbreLeitura(contexto_, consulta);
    if (contexto_.RecordsetComum.Eof())
        return;
    lblRowId.setText(contexto_.RecordsetComum.Fields(papel_.chave.toString()).text());
    contexto_.RecordsetComum.Close();
    CarregaRegistro();
}

void TelaPapel::CarregaRegistro() {
    Statement& consulta = contexto_.SqlConsulta;
    consulta.clear();
    consulta << "SELECT * FROM " << papel_.tabela << " WHERE " << papel_.chave << " = " << lblRowId.text();
    Recordset registro = AbreLeitura(contexto_, consulta);
    if (registro.Eof())
        return;
    LimpaCampos();
    txtDTDesativa.setText(registro.Fields("data_desa").textOr({}));
    CarregaCampos(registro);
    if (contatos_)
        contatos_->Carrega(lblRowId.text());
    registro.Close();
}

bool TelaPapel::Selecionado() const {
    return regras_.grupo.selecao == Selecao::PelaPessoa ? !RTrim(txtRowID.text()).isEmpty() : Val(lblRowId.text()) != 0;
}

QString TelaPapel::IdRegistro() const {
    return lblRowId.text();
}

void TelaPapel::cmdINCLUIR_Click() {
    if (Val(lblRowId.text()) > 0) {
        program().MsgBox(u"Este Registro já está vinculado!"_s);
        return;
    }
    BotoesEdicao();
    const auto passos = [this] {
        Edita(Modo::Inclusao);
        LimpaCampos();
        if (regras_.grupo.preencheCredencial)
            field(u"mskDtCredencial"_s).setText(FormatDate(contexto_.hoje()));
    };
    if (regras_.grupo.armadilhaIncluir)
        ComArmadilha(u"Erro ao Incluir o Registro!"_s, passos);
    else
        passos();
}

void TelaPapel::AoDesativar() {
    if (regras_.guardaVinculo)
        LimpaVinculoPess(contexto_, txtRowID.text(), papel_.chave);
}

bool TelaPapel::PodeReativar() {
    if (!regras_.grupo.conferePessoaAtiva || Trim(contexto_.Tela(telaPessoas).field(u"lblDataDesa"_s).text()).isEmpty())
        return true;
    program().MsgBox({u"Atenção!!!\nO registro 'Pessoa' deverá ser reativado antes dessa operação!"_s,
                      ContextoExecucao::Titulo(), Icon::Critical, Buttons::OK});
    return false;
}

void TelaPapel::AoReativar() {
    if (regras_.guardaVinculo)
        GravaVinculoPess(contexto_, txtRowID.text(), papel_.chave, lblRowId.text());
}

void TelaPapel::cmdSALVAR_Click() {
    if (contatos_)
        contatos_->MarcaForaDaLista();
    CompletaCampos();
    if (regras_.grupo.exigePessoa && Trim(txtRowID.text()).isEmpty()) {
        program().MsgBox(u"Falta Vinculo com a Tabela de Pessoas!!!"_s);
        return;
    }
    if (!ConfereCampos())
        return;
    BloqueiaCampos();
    MostraModo(Modo::Ocioso);
    if (EmEdicao()) {
        Grava([this] { modo() == Modo::Alteracao ? GravaAlteracao() : GravaInclusao(); });
        ConcluiOperacao();
    }
    BloqueiaCampos();
    BotoesOcioso();
    if (regras_.grupo.limpaAposGravar)
        LimpaCampos();
    cmdPESQUISAR_Click();
}

/// Runs the steps of a save in one transaction.
void TelaPapel::Grava(const std::function<void()>& passos) {
    setPointer(screen::Pointer::Hourglass);
    data::Connection& conexao = contexto_.principal();
    conexao.BeginTrans();
    try {
        passos();
        conexao.CommitTrans();
    } catch (const RuntimeError&) {
        if (regras_.erroNoSalvar == ErroNoSalvar::Encerra)
            throw;
        // The save asks the connection for "Rollback", an operation that it does not have: the program ends here and
        // the transaction dies with the connection.
        throw RuntimeError(errorNumber::NoSuchMember);
    }
    setPointer(screen::Pointer::Default);
}

void TelaPapel::Envia(const Statement& comando) {
    EnviaComando(contexto_, comando);
}

void TelaPapel::GravaAlteracao() {
    const qint32 id = ToInt32(Val(lblRowId.text()));
    Envia(MontaUpdate(id));
    if (!contatos_)
        return;
    Envia(contatos_->MontaDeleteContatos(lblRowId.text()));
    GravaContatos(QString::number(id));
}

void TelaPapel::GravaInclusao() {
    const std::optional<qint32> gerada = ChaveDoGerador(contexto_, papel_.gerador);
    Envia(MontaInsert(gerada));
    qint32 id = gerada.value_or(0);
    if (regras_.chaveNova == ChaveNova::Perguntada || (regras_.chaveNova == ChaveNova::PorGerador && !gerada))
        id = UltimoIdentity(contexto_);
    if (regras_.guardaVinculo)
        GravaVinculoPess(contexto_, contexto_.Tela(telaPessoas).field(u"txtRowID"_s).text(), papel_.chave,
                         QString::number(id));
    GravaContatos(QString::number(id));
}

void TelaPapel::GravaContatos(const QString& idPapel) {
    if (!contatos_)
        return;
    for (int linha = 1; linha < contatos_->Flex.Rows(); ++linha)
        Envia(contatos_->MontaInsertContato(idPapel, linha));
}

/// The list of an older table of salespeople, whatever the role.
void TelaPapel::chkVisualiza_Click() {
    if (regras_.grupo.gradeAntiga == GradeAntiga::Nenhuma)
        return;
    contexto_.SqlConsulta = Statement("SELECT * FROM Vendedor");
    if (!chkVisualiza.checked())
        contexto_.SqlConsulta << " where dtdesativa is null";
    if (contatos_)
        contatos_->PreparaGridContatos();
    for (Recordset linhas = AbreLeitura(contexto_, contexto_.SqlConsulta,
                                        {"idVendedor", "NOME_CONH", "nome", "dtinclusao", "dtdesativa"});
         !linhas.Eof(); linhas.MoveNext()) {
        if (!contatos_)
            throw RuntimeError(errorNumber::ObjectNotSet, u"A tela %1 não tem grade"_s.arg(name()));
        contatos_->Flex.AddRow({linhas.Fields("idVendedor").textOr({}), linhas.Fields("NOME_CONH").textOr({}),
                                linhas.Fields("nome").textOr({}), DataDaLinha(linhas.Fields("dtinclusao")),
                                DataDaLinha(linhas.Fields("dtdesativa"))});
    }
}

Insercao TelaPapel::IniciaInsert(std::optional<qint32> id) const {
    Insercao insercao(papel_.tabela);
    insercao.incluiChave(Statement(papel_.chave), id);
    insercao.inclui("idpess", txtRowID.text());
    return insercao;
}

Statement TelaPapel::EncerraInsert(Insercao insercao) const {
    return insercao.encerra(contexto_, regras_.grupo.dataComando);
}

Statement TelaPapel::IniciaUpdate() const {
    return Statement("UPDATE ") << papel_.tabela << " SET ";
}

Statement TelaPapel::EncerraUpdate(Statement comando, qint32 id) const {
    return comando << "WHERE (" << papel_.chave << "=" << id << ")";
}

std::optional<QString> TelaPapel::DataDoCampo(const Field& campo) const {
    const std::optional<QDateTime> data = ParseDate(campo.text());
    return data ? std::optional(regras_.grupo.dataComando(data->date())) : std::nullopt;
}

Statement OuNulo(const std::optional<QString>& valor) {
    return valor ? Statement("'") << *valor << "'" : Statement("null");
}

std::optional<QString> TextoDoCampo(const Field& campo) {
    return Trim(campo.text()).isEmpty() ? std::nullopt : std::optional(campo.text());
}

QString ValorDoCampo(const Field& campo) {
    QString valor = campo.text();
    return VirgulaParaPonto(valor);
}

void Mostra(Field& campo, const data::Value& valor, const QString& nulo) {
    campo.setText(valor.textOr(nulo));
}

void MostraValor(Field& campo, const data::Value& valor, const QString& nulo) {
    campo.setText(valor.isNull() ? nulo : FormatAmount(valor.number()));
}

void MostraData(screen::MaskedField& campo, const data::Value& valor) {
    if (valor.isNull())
        LimpaMascara(campo);
    else
        campo.setText(FormatDate(valor.date().date()));
}

} // namespace vorta
