#include "office/OfficeWork.h"

#include "base/Literals.h"
#include "kit/Documents.h"
#include "search/frmBROWSE_PESSOAS.h"

#include <csignal>

namespace vorta::test {

namespace {

const QString savedText = u"Registro Gravado com sucesso!"_s;
const QString bankName = u"BANCO DO BRASIL S.A."_s;

/// Numbers of two branches that differ, for a mark: colleagues write different ones.
std::pair<qsizetype, qsizetype> branchesOf(const QString& mark, qsizetype branches) {
    const auto first = static_cast<qsizetype>(qHash(mark) % static_cast<size_t>(branches));
    return {first, (first + 1) % branches};
}

} // namespace

OfficeWork::OfficeWork(const QString& home, const std::function<void(const QString&)>& tell)
    : home_(home), tell_(tell), register_(*this, [this](const QString&) { live(); }) {}

void OfficeWork::live() {
    if (toDeath_ > 0 && --toDeath_ == 0)
        ::raise(SIGKILL);
}

frmPessoas& OfficeWork::person() {
    return static_cast<frmPessoas&>(register_.context().Tela(Register::startScreen()));
}

bool OfficeWork::spend(const std::function<void()>& day) {
    day_ = day;
    register_.start(u"1^1^PRD^False^"_s);
    return flawless_ && !register_.program().failure();
}

screen::Answer OfficeWork::messageBox(const screen::Box& box) {
    if (box.text == savedText) {
        ++saved_;
        return screen::Answer::OK;
    }
    flawless_ = false;
    tell_(u"error\t"_s + QString(box.text).replace(u'\n', u' '));
    return box.buttons == screen::Buttons::OK ? screen::Answer::OK : screen::Answer::No;
}

void OfficeWork::runModal(screen::Screen& screen) {
    if (screen.name() == Register::startScreen()) {
        register_.user().dropDown(person().cboAtividades);
        branches_ = person().cboAtividades.items();
        day_();
    } else if (auto* role = dynamic_cast<TelaPapel*>(&screen)) {
        workOn(*role);
    } else {
        search(screen);
    }
    if (!register_.program().hasEnded())
        screen.Unload();
}

void OfficeWork::search(screen::Screen& screen) {
    auto& search = static_cast<frmBROWSE_PESSOAS&>(screen);
    screen::User& user = register_.user();
    user.type(search.cboCod, wanted_);
    user.click(search.cmdPesquisa);
    for (int row = 1; row < search.Flex.Rows(); ++row)
        if (search.Flex.cell(row, 2) == wanted_)
            return user.doubleClickCell(search.Flex, row, 2);
}

bool OfficeWork::saveRole(const QString& id, const Papel& role, const QString& mark) {
    screen::User& user = register_.user();
    user.type(person().txtRowID, id);
    user.click(person().cmdPesquisar_Cliente);
    mark_ = mark;
    const int before = saved_;
    user.click(person().field(QString::fromLatin1(role.botao)));
    return saved_ == before + 1;
}

void OfficeWork::workOn(TelaPapel& screen) {
    screen::User& user = register_.user();
    user.click(screen.lblRowId.text().isEmpty() ? screen.cmdINCLUIR : screen.cmdALTERAR);
    if (screen.findField(u"txtNomeContato"_s)) {
        auto& contacts = static_cast<screen::Grid&>(screen.field(u"Flex"_s));
        while (contacts.Rows() > 1 && !register_.program().hasEnded())
            user.clickCell(contacts, 1, 2);
        for (const char* contact : {"A", "B", "C"}) {
            user.type(screen.field(u"cboTipoContato"_s), u"Diretor"_s);
            user.type(screen.field(u"txtNomeContato"_s), mark_ + u' ' + QString::fromLatin1(contact));
            user.click(screen.field(u"cmdIncluirContato"_s));
        }
    }
    // A record without a bank shows "0" at its next opening, which no save takes for one.
    if (screen::Field* bank = screen.findField(u"cboBancoCartao"_s))
        user.type(*bank, bankName);
    toDeath_ = std::exchange(toDeathInRole_, 0);
    user.click(screen.cmdSALVAR);
}

void OfficeWork::pick(screen::ListField& list, const QString& item) {
    register_.user().dropDown(list);
    register_.user().pick(list, static_cast<int>(list.items().indexOf(item)));
}

QString OfficeWork::include(const QString& name, const QString& mark, quint64 document) {
    screen::User& user = register_.user();
    frmPessoas& screen = person();
    user.click(screen.cmdINCLUIR);
    pick(screen.cboFisJur, u"Física"_s);
    QString digits = QString::fromLatin1(kit::Cpf(document));
    user.type(screen.mskCodigo, digits.remove(u'.').remove(u'-'));
    user.type(screen.txtDescricao, name);
    user.type(screen.txtNomeFantasia, name);
    user.type(screen.txtEndereco, u"Rua da Carga"_s);
    user.type(screen.txtBairro, u"Centro"_s);
    user.type(screen.mskCEP, u"06010000"_s);
    pick(screen.cboUF, u"SP"_s);
    user.type(screen.cboCidade, u"Osasco"_s);
    user.type(screen.txtFone1, u"11 4000-0001"_s);
    fillLists(mark);
    return save() ? screen.txtRowID.text() : QString();
}

bool OfficeWork::alter(const QString& id, const QString& mark) {
    screen::User& user = register_.user();
    frmPessoas& screen = person();
    user.type(screen.txtRowID, id);
    user.click(screen.cmdPesquisar_Cliente);
    user.click(screen.cmdALTERAR);
    while (screen.contatos.Flex.Rows() > 1 && !register_.program().hasEnded())
        user.doubleClickCell(screen.contatos.Flex, 1, 2);
    while (screen.FlexAtividades.Rows() > 1 && !register_.program().hasEnded())
        user.clickCell(screen.FlexAtividades, 1, 1);
    fillLists(mark);
    return save();
}

void OfficeWork::fillLists(const QString& mark) {
    screen::User& user = register_.user();
    frmPessoas& screen = person();
    for (const char* contact : {"A", "B", "C"}) {
        user.type(screen.contatos.cboTipoContato, u"Diretor"_s);
        user.type(screen.contatos.txtNomeContato, mark + u' ' + QString::fromLatin1(contact));
        user.click(screen.contatos.cmdIncluirContato);
    }
    const auto [first, second] = branchesOf(mark, branches_.size());
    for (const qsizetype branch : {first, second}) {
        user.type(screen.cboAtividades, branches_[branch]);
        user.click(screen.cmdIncluirAtividades);
    }
    user.type(screen.txtOBSE_PESS_0001, branches_[first]);
    user.type(screen.txtOBSE_PESS_0002, branches_[second]);
    user.type(screen.txtOBSE_PESS_0003, mark);
}

bool OfficeWork::save() {
    const int before = saved_;
    register_.user().click(person().cmdSALVAR);
    return saved_ == before + 1;
}

QStringList OfficeWork::find(const QString& name) {
    screen::User& user = register_.user();
    frmPessoas& screen = person();
    wanted_ = name;
    user.type(screen.txtRowID, {});
    user.type(screen.txtCodPessExterno, {});
    user.click(screen.cmdPesquisar_Cliente); // the search screen
    if (screen.txtRowID.text().isEmpty())
        return {};
    user.click(screen.cmdPesquisar_Cliente);
    return {screen.txtRowID.text(), screen.txtOBSE_PESS_0003.text(), QString::number(screen.contatos.Flex.Rows() - 1),
            QString::number(screen.FlexAtividades.Rows() - 1)};
}

} // namespace vorta::test
