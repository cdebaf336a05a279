#include "importer/Importer.h"

#include "base/Literals.h"
#include "importer/Values.h"
#include "kit/FaultWords.h"
#include "shared/Consultas.h"

#include <algorithm>

namespace vorta::importer {

namespace {

using screen::Answer;
using screen::Buttons;
using screen::Field;

/// The boxes that belong to an entry that goes well, and what the user answers.
struct Expected {
    QStringView begins;
    Answer answer;
    bool tellsOfSave = false;
};
constexpr std::array expected{
    Expected{u"Registro Gravado com sucesso!", Answer::OK, true},
    Expected{u"Vínculo estabelecido com sucesso!", Answer::OK, true},
    Expected{u"Cadastro não localizado, A Inclusão Poderá ser Realizada.", Answer::Yes},
    Expected{u"Confirma Clone: De Razao Social P/ Nome Fantasia?", Answer::Yes},
    Expected{u"Deseja Criar um Vínculo de ", Answer::Yes},
    Expected{u"Existe operação não concluída!!!", Answer::Cancel},
};

/// A failure that comes of the person's own data, so that the next one may go well.
bool IsOfThePerson(const RuntimeError& error) {
    if (error.number() == errorNumber::ConnectionFailed)
        return false;
    const QString kind = error.sqlState().left(2);
    return error.engineCode() == 0 || kind == u"22" || kind == u"23" || kind == u"42";
}

/// A failure of the whole run, in the words in which the screens tell it.
RuntimeError WholeFailure(const RuntimeError& error) {
    return RuntimeError(error.number(), u"Erro %1: %2"_s.arg(error.number()).arg(error.description()));
}

QString WordsOf(const RuntimeError& error) {
    if (error.sqlState() == u"22001")
        return u"um texto é maior que a sua coluna na base"_s;
    return u"erro %1: %2"_s.arg(error.number()).arg(kit::FaultWords(error));
}

qint32 IdRegime(ContextoExecucao& context, const QString& name) {
    return IdRegimeEspecial(context, name).toInt();
}

/// A name behind a key: the screens store 0, or nothing, for one that does not exist.
struct Lookup {
    const char* field;
    qint32 (*find)(ContextoExecucao&, const QString&);
    QStringView what;
};
constexpr std::array lookups{
    Lookup{"cboVendedor", IdVendedor, u"vendedor"},
    Lookup{"cboTransportadora", IdTransportadora, u"transportadora"},
    Lookup{"cboTipoCli", IdTipoCliente, u"tipo de cliente"},
    Lookup{"cboRegimeEspecialICMS", IdRegime, u"regime especial"},
};

} // namespace

Importer::Importer(const QString& home, const QString& launchString, bool trial, data::StatementTrace trace)
    : home_(home), launchString_(launchString), transaction_(trial),
      register_(*this, std::move(trace),
                [this](std::unique_ptr<data::Adapter> adapter) { return transaction_.between(std::move(adapter)); }),
      hands_(register_.user()) {}

frmPessoas& Importer::person() {
    return static_cast<frmPessoas&>(register_.context().Tela(Register::startScreen()));
}

void Importer::open(const std::function<void()>& work) {
    work_ = work;
    register_.start(launchString_);
    if (error_)
        std::rethrow_exception(error_);
    if (started_)
        return;
    if (register_.program().failure())
        throw WholeFailure(*register_.program().failure());
    throw RuntimeError(errorNumber::ConnectionFailed, reasons_.join(u' '));
}

/// What the work raises must not reach the screens, for which a failure is a run-time error of their own.
void Importer::work(const std::function<void()>& work) {
    started_ = true;
    try {
        requireInclusions();
        work();
    } catch (const RuntimeError& error) {
        error_ = error.engineCode() == 0 ? std::current_exception() : std::make_exception_ptr(WholeFailure(error));
    }
}

void Importer::requireInclusions() {
    if (!person().cmdINCLUIR.enabled())
        throw RuntimeError(errorNumber::PathRefused,
                           u"A chamada %1 é só para consulta: nela não se inclui"_s.arg(launchString_));
}

void Importer::runModal(screen::Screen& screen) {
    if (&screen == &person())
        work(work_);
    else if (auto* entry = dynamic_cast<frmPESSOAS_INCL*>(&screen))
        checkEntry(*entry);
    else if (auto* role = dynamic_cast<TelaPapel*>(&screen))
        fillRole(*role);
    if (!register_.program().hasEnded() && screen.isLoaded())
        screen.Unload();
}

Answer Importer::messageBox(const screen::Box& box) {
    const auto row = std::ranges::find_if(
        expected, [&](const Expected& each) { return started_ && box.text.startsWith(each.begins); });
    if (row != expected.end()) {
        saved_ |= row->tellsOfSave;
        return row->answer;
    }
    // A failure is told by the program; of a question the user needs the fact in front of it.
    if (!register_.program().failure()) {
        const QString first = box.text.section(u'\n', 0, 0);
        refuse(box.buttons == Buttons::OK ? box.text.simplified() : first);
    }
    return box.buttons == Buttons::OK ? Answer::OK : Answer::No;
}

void Importer::refuse(const QString& reason) {
    if (!reason.isEmpty() && !reasons_.contains(reason))
        reasons_ += reason;
}

bool Importer::isReady() {
    return !register_.program().hasEnded() && !stuck_;
}

void Importer::fill(Field& field, const QString& text) {
    if (!isFine())
        return;
    // A box on the way says it better than the field behind it.
    const QString reason = hands_.fill(field, text);
    if (isFine())
        refuse(reason);
}

void Importer::typeInto(Field& field, const QString& text) {
    const QString reason = hands_.type(field, text);
    if (isFine())
        refuse(reason);
}

void Importer::click(Field& button) {
    if (isFine())
        register_.user().click(button);
}

QStringList Importer::enter(const PersonRow& row) {
    row_ = &row;
    reasons_.clear();
    transaction_.hold();
    include();
    for (const RoleEntry& role : row.roles)
        if (isFine())
            link(role);
    if (register_.program().hasEnded()) {
        const auto& failure = register_.program().failure();
        if (!failure || !IsOfThePerson(*failure))
            throw failure ? WholeFailure(*failure) : RuntimeError(errorNumber::ConnectionFailed, reasons_.join(u' '));
        refuse(WordsOf(*failure));
        return reasons_; // what was begun has gone with the connection
    }
    if (reasons_.isEmpty()) {
        transaction_.keep();
    } else {
        abandon();
        transaction_.undo();
    }
    return reasons_;
}

void Importer::include() {
    const QString kind = KindOf(*row_);
    if (person().cboFisJur.items().indexOf(kind) < 0)
        return refuse(u"cboFisJur: use F ou J, e não \"%1\""_s.arg(kind));
    saved_ = false;
    click(person().cmdINCLUIR);
    if (isFine() && !person().EmEdicao())
        refuse(u"a tela não começou a inclusão"_s);
    fillPerson();
    addContacts(person(), row_->contacts, {});
    for (const QString& branch : row_->branches)
        addBranch(branch);
    click(person().cmdSALVAR);
    if (isFine() && !saved_)
        refuse(u"a tela não gravou a pessoa"_s);
}

/// The kind first, since it decides the mask of the document, and then in the order of the keyboard.
void Importer::fillPerson() {
    frmPessoas& screen = person();
    fill(screen.cboFisJur, KindOf(*row_));
    if (const QString document = DocumentOf(*row_); !document.isEmpty())
        fill(screen.mskCodigo, document);
    for (const Field* field : screen.fields())
        if (field != &screen.cboFisJur && field != &screen.mskCodigo)
            fillRest(*field);
}

void Importer::fillRest(const Field& field) {
    frmPessoas& screen = person();
    const QString text = row_->field(field.name());
    // The clearing in front of an inclusion leaves these two as they were; a name to be known by can be asked for.
    const bool always = &field == &screen.txtCodPessExterno || &field == &screen.txtOBSE_PESS_0003;
    const bool asked = &field == &screen.txtNomeFantasia && field.text().isEmpty();
    if (text.isEmpty() && !always && !asked)
        return;
    fill(screen.field(field.name()), text);
    refuseUnknown(field, text);
}

void Importer::refuseUnknown(const Field& field, const QString& text) {
    const auto lookup = std::ranges::find_if(
        lookups, [&](const Lookup& each) { return field.name() == QLatin1StringView(each.field); });
    if (isFine() && !text.isEmpty() && lookup != lookups.end() && lookup->find(context(), text) == 0)
        refuse(u"%1: não existe %2 \"%3\""_s.arg(field.name(), lookup->what.toString(), text));
}

void Importer::addContacts(screen::Screen& screen, const Contacts& contacts, const QString& whose) {
    for (const std::vector<Entry>& contact : contacts) {
        const auto& list = static_cast<const screen::Grid&>(screen.field(u"Flex"_s));
        const int before = list.Rows();
        for (const Entry& entry : contact)
            fill(screen.field(entry.field), entry.text);
        click(screen.field(u"cmdIncluirContato"_s));
        if (isFine() && list.Rows() == before)
            refuse(u"um contato%1 precisa de tipo e de nome"_s.arg(whose));
    }
}

void Importer::addBranch(const QString& branch) {
    frmPessoas& screen = person();
    const int before = screen.FlexAtividades.Rows();
    fill(screen.cboAtividades, branch);
    click(screen.cmdIncluirAtividades);
    // The screen says that there is no such branch; which one, only the row knows.
    if (screen.FlexAtividades.Rows() == before && !register_.program().hasEnded())
        refuse(u"ramo de atividade: \"%1\""_s.arg(branch));
}

void Importer::link(const RoleEntry& role) {
    const QString name = QString::fromUtf8(role.role->nome);
    Field& button = person().field(QString::fromLatin1(role.role->botao));
    if (!button.visible())
        return refuse(u"a empresa não usa o papel %1"_s.arg(name));
    saved_ = false;
    role_ = &role;
    click(button);
    if (role_ && role.needsScreen())
        refuse(u"a empresa liga %1 sem tela: os seus campos e contatos não podem ser informados"_s.arg(name));
    role_ = nullptr;
    if (isFine() && !saved_)
        refuse(u"o vínculo de %1 não foi criado"_s.arg(name));
}

/// Gives the operation up by the frame, as no check of a field stands in front of that.
void Importer::abandon() {
    frmPessoas& screen = person();
    screen::User& user = register_.user();
    // Behind it the phone is closed and empty, and an empty phone lets nobody go.
    if (screen.focus() == &screen.txtFone1 && !screen.txtFone1.locked()) {
        user.type(screen.txtFone1, u"000000"_s);
        user.focus(screen.txtEndereco);
    }
    if (screen.EmEdicao())
        user.closeByFrame(screen);
    stuck_ = !register_.program().hasEnded() && screen.EmEdicao();
}

/// The first phase of an inclusion, where the company asks for it: name and document are checked before the rest.
void Importer::checkEntry(frmPESSOAS_INCL& screen) {
    const bool natural = KindOf(*row_) == u"Física";
    click(natural ? screen.Option2 : screen.Option1);
    if (const QString document = DocumentOf(*row_); !IsNoDocument(document))
        fill(screen.mskCodigo, document);
    QString name = row_->field(u"txtDescricao"_s);
    fill(screen.cboCod, name.replace(u'\'', QChar(u'\u00b4')));
    click(screen.cmdPesquisa);
    if (screen.isLoaded())
        refuse(screen.lstLog.items().join(u' '));
    if (screen.isLoaded() && isFine())
        refuse(u"a verificação não aceitou o nome"_s);
}

void Importer::fillRole(TelaPapel& screen) {
    const RoleEntry* role = std::exchange(role_, nullptr);
    const QString name = QString::fromUtf8(role->role->nome);
    click(screen.cmdINCLUIR);
    for (const Entry& entry : role->fields) {
        Field* field = screen.findField(entry.field);
        if (!field) {
            refuse(u"a tela de %1 não tem o campo %2"_s.arg(name, entry.field));
        } else if (isFine()) {
            typeInto(*field, entry.text);
            refuseUnknown(*field, entry.text);
        }
    }
    addContacts(screen, role->contacts, u" de "_s + name);
    click(screen.cmdSALVAR);
    if (!register_.program().hasEnded() && screen.EmEdicao())
        register_.user().closeByFrame(screen);
}

} // namespace vorta::importer
