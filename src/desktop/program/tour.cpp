// Plays a short tour through the register without a display and leaves a picture of each station: pessoas-tour FOLDER
// [LAUNCH STRING]. It looks and begins operations, but saves nothing.

#include "app/Register.h"
#include "base/Literals.h"
#include "desktop/DesktopApplication.h"
#include "desktop/DesktopPlatform.h"
#include "desktop/MessageBox.h"
#include "desktop/ScreenWindow.h"
#include "robot/windows/SmallPicture.h"
#include "shared/Modo.h"
#include "shared/Papeis.h"

#include <QDir>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>
#include <map>

namespace {

using namespace vorta;

constexpr int exitUnusable = 2;

/// The desktop with somebody who knows the way: each screen that comes up is played, each box answered.
class Tour : public desktop::DesktopPlatform {
  public:
    explicit Tour(const QString& folder) : folder_(folder) {}

    int play(const QString& launchString) {
        Register registro(*this);
        register_ = &registro;
        registro.start(launchString);
        std::printf("%d pictures in %s\n", pictures_, qPrintable(folder_.absolutePath()));
        return registro.program().exitCode();
    }

    screen::Answer messageBox(const screen::Box& box) override {
        QTimer::singleShot(0, qApp, [this] {
            auto* shown = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            picture(*shown, u"pergunta"_s);
            // Whatever has been begun is given up.
            for (const screen::Answer answer : {screen::Answer::Cancel, screen::Answer::No, screen::Answer::OK})
                if (QAbstractButton* button = desktop::ButtonOf(*shown, answer))
                    return button->click();
        });
        return DesktopPlatform::messageBox(box);
    }

    QString dataFolder() const override { return {}; }

    void runModal(screen::Screen& screen) override {
        QTimer::singleShot(0, qApp, [this, &screen] { station(screen); });
        DesktopPlatform::runModal(screen);
    }

  private:
    using Part = void (Tour::*)();

    /// What is done on a screen; one that is only looked at is closed by its frame.
    void station(screen::Screen& screen) {
        static const std::map<QString, Part> parts{{u"frmPessoas"_s, &Tour::persons},
                                                   {u"frmBROWSE_PESSOAS"_s, &Tour::personSearch},
                                                   {u"frmBROWSE_CEPS"_s, &Tour::streetSearch},
                                                   {u"frmBROWSE_PRODUTO"_s, &Tour::productSearch}};
        // The offscreen platform has a small screen; its pictures need none.
        top()->resize(top()->wholeSize());
        const auto part = parts.find(screen.name());
        if (part != parts.end())
            (this->*part->second)();
        else
            picture();
        if (screen.isLoaded() && !screen.program().hasEnded() && top() && &top()->binder().screen() == &screen)
            top()->close();
    }

    void persons() {
        picture();
        click("cmdPesquisar_Cliente");
        click("cmdPesquisar_Cliente");
        pages("SSTab1");
        pages("SSTab2");
        const QString person = field("txtRowID").text();
        click("cmdALTERAR");
        picture(u"alteracao"_s);
        click("cmdCEP");
        giveUp();
        click("cmdINCLUIR");
        type("txtDescricao", "Maria da Conceição d'Ávila");
        picture(u"inclusao"_s);
        giveUp();
        for (const char* other : {"frmPESSOAS_INCL", "frmInfoPess", "frmBROWSE_PRODUTO"})
            open(other, person);
        for (const Papel& papel : papeis)
            open(papel.tela, person);
        click("cmdSAIR");
    }

    /// Leaves an operation begun; the question about it is answered with its end.
    void giveUp() {
        if (ModoAtual(register_->context()) != Modo::Ocioso)
            click("cmdSAIR");
    }

    void personSearch() {
        click("opCliente");
        click("cmdPesquisa");
        picture();
        doubleClickFirst("Flex");
    }

    void streetSearch() {
        type("txtEndereco", "a");
        click("cmdPesquisa");
        picture();
    }

    void productSearch() {
        field("lblCodiEmpresa").setText(u"0001"_s);
        click("cmdPesquisa");
        picture();
    }

    screen::User& user() { return register_->user(); }
    screen::Screen& screen() { return top()->binder().screen(); }
    screen::Field& field(const char* name) { return screen().field(QString::fromLatin1(name)); }
    bool act(const std::function<void()>& event) {
        return top() && top()->binder().isOpen() && top()->binder().act(event);
    }

    void click(const char* name) {
        act([&] { user().click(field(name)); });
    }
    void type(const char* name, const char* text) {
        act([&] { user().type(field(name), QString::fromUtf8(text)); });
    }
    void doubleClickFirst(const char* name) {
        auto& grid = dynamic_cast<screen::Grid&>(field(name));
        if (grid.Rows() > 1)
            act([&] { user().doubleClickCell(grid, 1, 0); });
    }
    void pages(const char* name) {
        if (!top())
            return;
        auto& strip = dynamic_cast<screen::TabStrip&>(field(name));
        for (int page = 0; page < strip.captions().size(); ++page) {
            act([&] { user().chooseTab(strip, page); });
            picture(strip.captions()[page]);
        }
        act([&] { user().chooseTab(strip, 0); });
    }
    /// Opens a screen as a caller would that has chosen this person.
    void open(const char* name, const QString& person) {
        act([&] {
            register_->program().dispatch([&] {
                register_->context().IdPessoaVinculo = person;
                register_->context().MostraTela(QString::fromLatin1(name));
            });
        });
    }

    void picture(const QString& what = {}) {
        if (top())
            picture(*top(), what.isEmpty() ? screen().name() : screen().name() + u' ' + what);
    }
    void picture(QWidget& widget, const QString& what) {
        QCoreApplication::processEvents();
        const QString name = u"%1 %2.png"_s.arg(++pictures_, 2, 10, QChar(u'0')).arg(what);
        std::printf("%s\n", qUtf8Printable(name));
        if (!robot::SaveSmall(widget.grab().toImage(), folder_.filePath(name)))
            std::fprintf(stderr, "%s cannot be written\n", qUtf8Printable(folder_.filePath(name)));
    }

    QDir folder_;
    Register* register_ = nullptr;
    int pictures_ = 0;
};

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    vorta::desktop::DesktopApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 2 || arguments.size() > 3 || !QDir().mkpath(arguments[1])) {
        std::fputs("usage: pessoas-tour FOLDER [LAUNCH STRING]\n", stderr);
        return exitUnusable;
    }
    // The user's own places of windows are none of the tour's business.
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    return Tour(arguments[1]).play(arguments.value(2, u"1^1^PRD^False^"_s));
}
