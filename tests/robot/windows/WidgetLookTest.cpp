#include "base/Literals.h"
#include "robot/Player.h"
#include "robot/windows/DesktopHands.h"
#include "screen/Program.h"
#include "support/FakeDatabase.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QStandardItemModel>
#include <QTabWidget>
#include <QTableView>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace vorta::test {

namespace {

/// Fields of all kinds under names that forms of the register have. A click on the company's name carries out what the
/// test wants to happen, without moving the focus.
struct Tela : screen::Screen {
    Tela(screen::Program& program, const QString& name, const QString& image) : Screen(program, name) {
        txtBairro.setText(u"CENTRO"_s);
        txtBairro.setMaxLength(30);
        txtEndereco.setText(u"RUA AUGUSTA"_s);
        txtEndereco.setMaxLength(5);
        mskCEP.setText(u"01310100"_s);
        mskCodigo.setEnabled(false);
        mskCodigo.setForeground(screen::colour::Red);
        for (const char* item : {"A", "B"})
            cboCidade.addItem(QLatin1String(item));
        lblCGCCPF.setBackground(screen::colour::Red);
        lblCGCCPF.setBold(true);
        opTopSobe.setBackground(screen::colour::Red);
        cmdSALVAR.setToolTip(u"Grava"_s);
        cmdSALVAR.setBold(true);
        cmdSALVAR.loadPicture(image);
        Image1.loadPicture(image);
        Flex.reset({{u"Nome"_s}, {u"Fone"_s}});
        Flex.AddItem(u"MARIA\t123"_s);
        lblNomeEmpresa.Click = [this] { onClick(); };
    }

    std::function<void()> onClick;
    screen::Label lblNomeEmpresa{this, "lblNomeEmpresa", u"EMPRESA"_s};
    screen::TextField txtRowID{this, "txtRowID"}; ///< has the focus
    screen::TextField txtBairro{this, "txtBairro"};
    screen::TextField txtEndereco{this, "txtEndereco"};
    screen::TextField txtOBSE_PESS_0001{this, "txtOBSE_PESS_0001"};
    screen::MaskedField mskCEP{this, "mskCEP", u"#####-###"_s};
    screen::MaskedField mskCodigo{this, "mskCodigo"};
    screen::ListField cboCidade{this, "cboCidade"};
    screen::Label lblCGCCPF{this, "lblCGCCPF", u"CNPJ"_s};
    screen::Option opTopSobe{this, "opTopSobe", u"Sobe"_s, "ordem", true};
    screen::Button cmdSALVAR{this, "cmdSALVAR", u"&Salvar"_s};
    screen::Grid Flex{this, "Flex"};
    screen::TabStrip SSTab1{this, "SSTab1", {u"Um"_s, u"Dois"_s}};
    screen::Picture Image1{this, "Image1"};
};

using Change = void (*)(QWidget& widget);

struct Disagreement {
    const char* name;
    const char* field;
    const char* expectation; ///< what stands behind the field's name
    Change change;           ///< what happens to the widget alone
    const char* form = "frmPessoas";
};

std::ostream& operator<<(std::ostream& out, const Disagreement& row) {
    return out << row.name;
}

/// The one widget of that name in the windows on the screen.
QWidget* shownWidget(const char* name) {
    for (const QWidget* window : QApplication::topLevelWidgets())
        if (auto* widget = window->isVisible() ? window->findChild<QWidget*>(QLatin1String(name)) : nullptr)
            return widget;
    return nullptr;
}

class OneScreen : public robot::Cast {
  public:
    OneScreen(screen::Platform& platform, FakeDatabase& database, const Disagreement& row, const QString& image)
        : program_(platform), context_(program_, database.factory(), {}), user_(program_), row_(row), image_(image) {}

    screen::Program& program() override { return program_; }
    ContextoExecucao& context() override { return context_; }
    screen::User& user() override { return user_; }
    void start(const QString&) override {
        program_.dispatch([this] {
            Tela tela(program_, QLatin1String(row_.form), image_);
            tela.onClick = [this] { row_.change(*shownWidget(row_.field)); };
            program_.ShowModal(tela);
            program_.End();
        });
    }

  private:
    screen::Program program_;
    ContextoExecucao context_;
    screen::User user_;
    const Disagreement& row_;
    QString image_;
};

/// A program of that one screen in a folder with an image.
class OneScreenStage : public robot::Stage {
  public:
    explicit OneScreenStage(const Disagreement& row) : row_(row) {
        QPixmap picture(16, 16);
        picture.fill(Qt::red);
        picture.save(image());
    }
    QString home() const override { return folder_.path(); }
    data::Engine engine() const override { return data::Engine::Firebird; }
    std::unique_ptr<robot::Cast> cast(screen::Platform& platform, data::StatementTrace) override {
        return std::make_unique<OneScreen>(platform, database_, row_, image());
    }
    void execute(robot::Base, const QString&) override {}
    QString query(robot::Base, const QString&) override { return {}; }

  private:
    QString image() const { return folder_.filePath(u"foto.bmp"_s); }

    const Disagreement& row_;
    QTemporaryDir folder_;
    FakeDatabase database_;
};

template <typename Widget>
Widget& as(QWidget& widget) {
    return dynamic_cast<Widget&>(widget);
}

void paint(QWidget& widget, QPalette::ColorRole role) {
    QPalette palette = widget.palette();
    palette.setColor(role, Qt::green);
    widget.setPalette(palette);
}

void weigh(QWidget& widget, bool bold) {
    QFont font = widget.font();
    font.setBold(bold);
    widget.setFont(font);
}

QPixmap blue() {
    QPixmap picture(16, 16);
    picture.fill(Qt::blue);
    return picture;
}

class AWidget : public testing::TestWithParam<Disagreement> {};

} // namespace

/// The same expectation holds, and does no more once the widget shows something else while the field is as it was.
TEST_P(AWidget, IsLookedAtByItself) {
    const Disagreement& row = GetParam();
    OneScreenStage stage(row);
    const QString expectation = u"expect %1 %2\n"_s.arg(QLatin1String(row.field), row.expectation);
    const auto scenario = robot::Scenario::parse(u"x.roteiro"_s, u"launch \"\"\n"_s + expectation +
                                                                     u"click lblNomeEmpresa\n"_s + expectation);
    const auto verdict = robot::Player(scenario, stage, robot::MakeDesktopHands).play();
    ASSERT_TRUE(verdict);
    EXPECT_EQ(verdict->line, 4) << verdict->message;
    EXPECT_TRUE(verdict->message.contains(u"in the window")) << verdict->message;
}

constexpr Disagreement disagreements[] = {
    {"text", "txtBairro", "text \"CENTRO\"", [](QWidget& w) { as<QLineEdit>(w).setText(u"OUTRO"_s); }},
    {"textOfAList", "cboCidade", "text \"\"", [](QWidget& w) { as<QComboBox>(w).setEditText(u"A"_s); }},
    {"textOfALabel", "lblCGCCPF", "text \"CNPJ\"", [](QWidget& w) { as<QLabel>(w).setText(u"CPF"_s); }},
    {"textOfAButton", "cmdSALVAR", "text \"Salvar\"", [](QWidget& w) { as<QAbstractButton>(w).setText(u"Grava"_s); }},
    {"textOfATab", "SSTab1", "text \"Um\"", [](QWidget& w) { as<QTabWidget>(w).setTabText(0, u"Tres"_s); }},
    {"enabled", "cmdSALVAR", "enabled true", [](QWidget& w) { w.setEnabled(false); }},
    {"visible", "cmdSALVAR", "visible true", [](QWidget& w) { w.hide(); }},
    {"locked", "txtBairro", "locked false", [](QWidget& w) { as<QLineEdit>(w).setReadOnly(true); }},
    {"lockedNotes", "txtOBSE_PESS_0001", "locked false", [](QWidget& w) { as<QPlainTextEdit>(w).setReadOnly(true); }},
    {"checked", "opTopSobe", "checked true", [](QWidget& w) { as<QAbstractButton>(w).setChecked(false); }},
    {"mask", "mskCEP", "mask \"#####-###\"", [](QWidget& w) { as<QLineEdit>(w).setText(u"01310100"_s); }},
    {"noMask", "mskCodigo", "mask \"\"", [](QWidget& w) { as<QLineEdit>(w).setText(u"___.___.___-__"_s); }},
    {"limit", "txtBairro", "maxlength 30", [](QWidget& w) { as<QLineEdit>(w).setMaxLength(40); }},
    {"limitBelowALongText", "txtEndereco", "maxlength 5", [](QWidget& w) { as<QLineEdit>(w).setMaxLength(12); }},
    {"noLimit", "mskCEP", "maxlength 0", [](QWidget& w) { as<QLineEdit>(w).setMaxLength(9); }},
    {"toolTip", "cmdSALVAR", "tooltip \"Grava\"", [](QWidget& w) { w.setToolTip(u"Apaga"_s); }},
    {"ground", "txtBairro", "background 16777215", [](QWidget& w) { paint(w, QPalette::Base); }},
    {"groundOfAList", "cboCidade", "background 16777215", [](QWidget& w) { paint(w, QPalette::Base); }},
    {"groundOfAGrid", "Flex", "background 16777215", [](QWidget& w) { paint(w, QPalette::Base); }},
    {"groundOfALabel", "lblCGCCPF", "background 255", [](QWidget& w) { paint(w, QPalette::Window); }},
    {"groundNotPainted", "lblCGCCPF", "background 255", [](QWidget& w) { w.setAutoFillBackground(false); }},
    {"groundOfAnOption", "opTopSobe", "background 255", [](QWidget& w) { paint(w, QPalette::Button); }},
    {"groundOfAButton", "cmdSALVAR", "background -2147483633", [](QWidget& w) { paint(w, QPalette::Button); }},
    {"letters", "txtBairro", "foreground -2147483640", [](QWidget& w) { paint(w, QPalette::Text); }},
    {"lettersOfADisabledInput", "mskCodigo", "foreground 255", [](QWidget& w) { paint(w, QPalette::Text); }},
    {"lettersOfALabel", "lblCGCCPF", "foreground -2147483640", [](QWidget& w) { paint(w, QPalette::WindowText); }},
    {"lettersOfAButton", "cmdSALVAR", "foreground -2147483640", [](QWidget& w) { paint(w, QPalette::ButtonText); }},
    {"bold", "cmdSALVAR", "bold true", [](QWidget& w) { weigh(w, false); }},
    {"boldLabel", "lblCGCCPF", "bold true", [](QWidget& w) { weigh(w, false); }},
    {"notBold", "cboCidade", "bold false", [](QWidget& w) { weigh(w, true); }},
    {"icon", "cmdSALVAR", "picture \"foto.bmp\"", [](QWidget& w) { as<QAbstractButton>(w).setIcon(blue()); }},
    {"noIcon", "cmdSALVAR", "picture \"foto.bmp\"", [](QWidget& w) { as<QAbstractButton>(w).setIcon({}); }},
    {"picture", "Image1", "picture \"foto.bmp\"", [](QWidget& w) { as<QLabel>(w).setPixmap(blue()); },
     "frmBROWSE_PRODUTO"},
    {"noPicture", "Image1", "picture \"foto.bmp\"", [](QWidget& w) { as<QLabel>(w).setPixmap({}); },
     "frmBROWSE_PRODUTO"},
    {"items", "cboCidade", "items 2", [](QWidget& w) { as<QComboBox>(w).removeItem(0); }},
    {"item", "cboCidade", "item 0 \"A\"", [](QWidget& w) { as<QComboBox>(w).setItemText(0, u"C"_s); }},
    {"rows", "Flex", "rows 2", [](QWidget& w) { as<QTableView>(w).setModel(new QStandardItemModel(0, 2, &w)); }},
    {"cols", "Flex", "cols 2", [](QWidget& w) { as<QTableView>(w).setModel(new QStandardItemModel(1, 1, &w)); }},
    {"row", "Flex", "row 1", [](QWidget& w) { as<QTableView>(w).selectionModel()->clear(); }},
    {"cell", "Flex", "cell 1 0 \"MARIA\"",
     [](QWidget& w) { as<QTableView>(w).setModel(new QStandardItemModel(1, 2, &w)); }},
};

INSTANTIATE_TEST_SUITE_P(Looks, AWidget, testing::ValuesIn(disagreements),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace vorta::test
