#include "person/RascunhoPessoa.h"

#include "base/Format.h"
#include "base/Journal.h"
#include "base/Text.h"
#include "launch/AcessoDados.h"
#include "person/frmPessoas.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSaveFile>

namespace vorta {

namespace {

using screen::FieldKind;
using screen::Grid;

/// A window beyond so many of one user keeps no draft.
constexpr int lugares = 20;
constexpr qint64 maisBytes = 1 << 20;

const QString inclusao = u"I"_s;
const QString alteracao = u"A"_s;

/// What is kept of a field: its text, and of a masked one the mask that it has at this moment.
bool guarda(const screen::Field& campo) {
    return campo.kind() == FieldKind::Text || campo.kind() == FieldKind::List || campo.kind() == FieldKind::Masked ||
           campo.kind() == FieldKind::Label;
}

/// Rows of a grid with tabulations between their cells.
QJsonArray linhasDe(const Grid& grade) {
    QJsonArray linhas;
    for (int linha = 1; linha < grade.Rows(); ++linha) {
        QStringList celulas;
        for (int coluna = 0; coluna < grade.Cols(); ++coluna)
            celulas += grade.cell(linha, coluna);
        linhas += celulas.join(u'\t');
    }
    return linhas;
}

void poeLinhas(Grid& grade, const QJsonArray& linhas) {
    for (const auto& linha : linhas)
        grade.AddItem(linha.toString());
}

std::optional<QJsonObject> lido(const QString& caminho) {
    QFile arquivo(caminho);
    if (!arquivo.open(QIODevice::ReadOnly))
        return {};
    const QJsonDocument documento = QJsonDocument::fromJson(arquivo.read(maisBytes));
    const QString modo = documento.object()[u"modo"_s].toString();
    return modo == inclusao || modo == alteracao ? std::optional(documento.object()) : std::nullopt;
}

/// The place of the drafts of this installation, user, company and environment.
QString prefixo(const ContextoExecucao& contexto) {
    const QString quem = QStringList{contexto.platform().home(), QString::number(contexto.CodigoUsuario),
                                     QString::number(contexto.CodigoEmpresa), contexto.Ambiente}
                             .join(u'^');
    const QByteArray marca = QCryptographicHash::hash(quem.toUtf8(), QCryptographicHash::Sha256).toHex().first(16);
    return u"pessoa-"_s + QString::fromLatin1(marca);
}

} // namespace

RascunhoPessoa::~RascunhoPessoa() {
    if (!arquivo_.isEmpty())
        tela_.program().onEvent = {};
}

void RascunhoPessoa::Abre() {
    ContextoExecucao& contexto = tela_.contexto();
    if (contexto.SomenteConsulta || !InterruptorLigado(contexto, u"PESS_RASCUNHO"_s) || !TomaLugar())
        return;
    if (const std::optional<QJsonObject> rascunho = lido(arquivo_))
        Oferece(*rascunho);
    else
        QFile::remove(arquivo_);
    tela_.program().onEvent = [this](bool encerrando) { Observa(encerrando); };
}

/// A free place among those of this user's windows, at first one whose window has died and left something.
bool RascunhoPessoa::TomaLugar() {
    const QString pasta = tela_.contexto().platform().dataFolder();
    if (pasta.isEmpty())
        return false;
    const QDir rascunhos(pasta + u"/rascunhos"_s);
    if (!rascunhos.mkpath(u"."_s)) {
        Journal(u"A pasta de rascunhos %1 não pode ser criada"_s.arg(rascunhos.path()));
        return false;
    }
    QFile::setPermissions(rascunhos.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    for (const bool comRascunho : {true, false})
        for (int lugar = 1; lugar <= lugares; ++lugar) {
            const QString nome = rascunhos.filePath(u"%1-%2"_s.arg(prefixo(tela_.contexto())).arg(lugar));
            if (comRascunho && !QFile::exists(nome + u".json"_s))
                continue;
            auto tranca = std::make_unique<QLockFile>(nome + u".lock"_s);
            tranca->setStaleLockTime(0);
            if (!tranca->tryLock(0))
                continue;
            lugar_ = std::move(tranca);
            arquivo_ = nome + u".json"_s;
            return true;
        }
    return false;
}

/// The mode is shared by all screens; an operation of this one has its save button on.
bool RascunhoPessoa::EmOperacao() const {
    return tela_.EmEdicao() && tela_.cmdSALVAR.enabled();
}

void RascunhoPessoa::Observa(bool encerrando) {
    if (arquivo_.isEmpty())
        return;
    if (!EmOperacao()) {
        concluida_ = false;
        chave_.clear();
        if (!ultimo_.isEmpty())
            Descarta();
        return;
    }
    if (concluida_)
        return;
    const QByteArray agora = Conteudo();
    if (agora == ultimo_ && !encerrando)
        return;
    ultimo_ = agora;
    if (encerrando)
        Grava();
    else
        tela_.program().platform().soon([this] { Grava(); });
}

QByteArray RascunhoPessoa::Conteudo() const {
    QJsonObject campos, mascaras;
    for (const CampoLigado& ligado : LigaCampos(tela_)) {
        if (!guarda(*ligado.campo))
            continue;
        campos[ligado.campo->name()] = ligado.campo->text();
        if (const auto* mascara = dynamic_cast<const screen::MaskedField*>(ligado.campo))
            mascaras[ligado.campo->name()] = mascara->mask();
    }
    const bool inclui = tela_.modo() == Modo::Inclusao;
    return QJsonDocument(QJsonObject{{u"modo"_s, inclui ? inclusao : alteracao},
                                     {u"idpess"_s, inclui ? QString() : tela_.txtRowID.text()},
                                     {u"gravando"_s, chave_},
                                     {u"foco"_s, tela_.focus() ? tela_.focus()->name() : QString()},
                                     {u"campos"_s, campos},
                                     {u"mascaras"_s, mascaras},
                                     {u"contatos"_s, linhasDe(tela_.contatos.Flex)},
                                     {u"ramos"_s, linhasDe(tela_.FlexAtividades)}})
        .toJson(QJsonDocument::Compact);
}

/// A draft that cannot be written is no reason to stop anybody at work.
void RascunhoPessoa::Grava() {
    if (ultimo_.isEmpty() || arquivo_.isEmpty())
        return;
    QSaveFile arquivo(arquivo_);
    const bool certo = arquivo.open(QIODevice::WriteOnly) &&
                       arquivo.setPermissions(QFile::ReadOwner | QFile::WriteOwner) &&
                       arquivo.write(ultimo_) == ultimo_.size() && arquivo.commit();
    if (!certo)
        Journal(u"O rascunho %1 não pôde ser gravado: %2"_s.arg(arquivo_, arquivo.errorString()));
}

void RascunhoPessoa::VaiGravar(const QString& idpess) {
    if (arquivo_.isEmpty())
        return;
    chave_ = idpess;
    ultimo_ = Conteudo();
    Grava();
}

void RascunhoPessoa::Descarta() {
    ultimo_.clear();
    concluida_ = EmOperacao();
    if (!arquivo_.isEmpty())
        QFile::remove(arquivo_);
}

void RascunhoPessoa::Encerra() {
    Descarta();
    arquivo_.clear();
    lugar_.reset();
}

void RascunhoPessoa::Oferece(const QJsonObject& rascunho) {
    const QString nome = rascunho[u"campos"_s].toObject()[u"txtDescricao"_s].toString();
    const bool inclui = rascunho[u"modo"_s].toString() == inclusao;
    const QString quando = FormatDateTime(QFileInfo(arquivo_).lastModified());
    const bool retoma =
        !JaGravado(rascunho) &&
        tela_.program().MsgBox({u"Uma %1 foi interrompida em %2.\n%3\n\n<Sim> Retomar de onde parou\n<Não> Descartar "
                                "o que foi digitado"_s.arg(inclui ? u"inclusão"_s : u"alteração"_s, quando,
                                                           nome.isEmpty() ? u"(sem nome)"_s : nome),
                                ContextoExecucao::Titulo(), screen::Icon::None, screen::Buttons::YesNo}) ==
            screen::Answer::Yes;
    if (!retoma || !Retoma(rascunho))
        QFile::remove(arquivo_);
}

/// The end came between the commit and the removal of the draft.
bool RascunhoPessoa::JaGravado(const QJsonObject& rascunho) const {
    const auto chave = static_cast<qint64>(Val(rascunho[u"gravando"_s].toString()));
    if (chave <= 0)
        return false;
    data::Statement consulta("SELECT idpess FROM PESS WHERE idPESS = ");
    consulta << chave;
    return !AbreLeitura(tela_.contexto(), consulta).Eof();
}

/// False when the person of an alteration cannot be altered any more.
bool RascunhoPessoa::Retoma(const QJsonObject& rascunho) {
    if (rascunho[u"modo"_s].toString() == inclusao) {
        tela_.LimpaTela();
        tela_.IniciaInclusao();
    } else if (!Recarrega(rascunho[u"idpess"_s].toString())) {
        return false;
    }
    Preenche(rascunho);
    ultimo_ = Conteudo();
    return true;
}

bool RascunhoPessoa::Recarrega(const QString& idpess) {
    tela_.txtRowID.setText(idpess);
    tela_.CarregaPessoa();
    const bool perdida = tela_.txtDescricao.text().isEmpty();
    if (!perdida && RTrim(tela_.txtDTDesativa.text()).isEmpty()) {
        tela_.IniciaAlteracao();
        return true;
    }
    tela_.LimpaTela();
    tela_.program().MsgBox({perdida ? u"A pessoa não está mais no cadastro; a alteração não pode ser retomada."_s
                                    : u"A pessoa foi desativada; a alteração não pode ser retomada."_s,
                            ContextoExecucao::Titulo(), screen::Icon::Information, screen::Buttons::OK});
    return false;
}

void RascunhoPessoa::Preenche(const QJsonObject& rascunho) {
    const QJsonObject campos = rascunho[u"campos"_s].toObject(), mascaras = rascunho[u"mascaras"_s].toObject();
    for (const CampoLigado& ligado : LigaCampos(tela_)) {
        const QJsonValue texto = campos[ligado.campo->name()];
        if (!guarda(*ligado.campo) || !texto.isString() || ligado.campo == &tela_.txtRowID ||
            ligado.campo == &tela_.lblCodiEmpresa)
            continue;
        auto* mascara = dynamic_cast<screen::MaskedField*>(ligado.campo);
        if (mascara)
            mascara->setMask({});
        ligado.campo->setText(texto.toString());
        if (mascara)
            mascara->setMask(mascaras[ligado.campo->name()].toString());
    }
    tela_.contatos.PreparaGridContatos();
    poeLinhas(tela_.contatos.Flex, rascunho[u"contatos"_s].toArray());
    PreparaGridAtividades(tela_);
    poeLinhas(tela_.FlexAtividades, rascunho[u"ramos"_s].toArray());
    if (screen::Field* foco = tela_.findField(rascunho[u"foco"_s].toString()); foco && !foco->locked())
        tela_.SetFocus(*foco);
}

} // namespace vorta
