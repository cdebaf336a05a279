#pragma once

#include "base/Literals.h"
#include "desktop/Binder.h"
#include "desktop/Binding.h"
#include "screen/Program.h"
#include "support/World.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace vorta::test {

/// A screen with fields of all kinds, in this tab order.
struct SampleScreen : screen::Screen {
    explicit SampleScreen(screen::Program& program) : Screen(program, u"frmAmostra"_s) {
        tabs.place(u"Um"_s, {&txtNome, &txtNota, &mskCEP});
        tabs.place(u"Dois"_s, {&txtOutro});
        txtNota.keepsLines = true;
        Flex.keysChoose = true;
        for (screen::Field* field : fields()) {
            field->GotFocus = [this, field] { events += u"got "_s + field->name(); };
            field->LostFocus = [this, field] { events += u"lost "_s + field->name(); };
            field->Click = [this, field] { events += u"click "_s + field->name(); };
            field->DblClick = [this, field] { events += u"double "_s + field->name(); };
            field->DropDown = [this, field] { events += u"drop "_s + field->name(); };
        }
    }

    QStringList events;
    screen::Label lblTitulo{this, "lblTitulo", u"Título"_s};
    screen::TabStrip tabs{this, "tabs", {u"Um"_s, u"Dois"_s}};
    screen::TextField txtNome{this, "txtNome"};
    screen::TextField txtNota{this, "txtNota"};
    screen::MaskedField mskCEP{this, "mskCEP", u"#####-###"_s};
    screen::TextField txtOutro{this, "txtOutro"};
    screen::ListField cboCidade{this, "cboCidade"};
    screen::ListField lstLog{this, "lstLog", false};
    screen::Option opSim{this, "opSim", u"Sim"_s, "resposta"};
    screen::Option opNao{this, "opNao", u"Não"_s, "resposta", true};
    screen::Check chkAtivo{this, "chkAtivo", u"Ativo"_s};
    screen::Grid Flex{this, "Flex"};
    screen::Picture imgFoto{this, "imgFoto"};
    screen::Button cmdSALVAR{this, "cmdSALVAR", u"&Salvar"_s};
};

/// The screen shown in a window that has been built by hand.
class SampleWindow : public testing::Test, protected World {
  protected:
    SampleWindow() {
        auto* layout = new QVBoxLayout(&window);
        const auto named = [](auto* widget, const char* name) {
            widget->setObjectName(QLatin1String(name));
            return widget;
        };
        auto* pages = named(new QTabWidget, "tabs");
        for (int page = 0; page < 2; ++page) {
            auto* body = new QWidget;
            auto* column = new QVBoxLayout(body);
            if (page == 0) {
                column->addWidget(named(nome = new QLineEdit, "txtNome"));
                column->addWidget(named(nota = new QPlainTextEdit, "txtNota"));
                column->addWidget(named(cep = new QLineEdit, "mskCEP"));
            } else {
                column->addWidget(named(outro = new QLineEdit, "txtOutro"));
            }
            pages->addTab(body, QString());
        }
        tabs = pages;
        layout->addWidget(named(titulo = new QLabel, "lblTitulo"));
        layout->addWidget(pages);
        layout->addWidget(named(cidade = new QComboBox, "cboCidade"));
        layout->addWidget(named(log = new QListView, "lstLog"));
        layout->addWidget(named(sim = new QRadioButton, "opSim"));
        layout->addWidget(named(nao = new QRadioButton, "opNao"));
        layout->addWidget(named(ativo = new QCheckBox, "chkAtivo"));
        layout->addWidget(named(grade = new QTableView, "Flex"));
        layout->addWidget(named(foto = new QLabel, "imgFoto"));
        foto->setMinimumSize(32, 32);
        layout->addWidget(named(salvar = new QPushButton, "cmdSALVAR"));
        platform.whenShown(tela.name(), [this](screen::Screen&) { body_(); });
    }

    /// Does something while the screen is open in its window.
    void open(std::function<void()> body) {
        body_ = [this, body = std::move(body)] {
            binder = std::make_unique<desktop::Binder>(tela, user, window, window);
            window.resize(500, 900);
            window.show();
            window.activateWindow();
            settle();
            tela.events.clear();
            body();
            binder.reset();
        };
        program.dispatch([this] { program.ShowModal(tela); });
    }

    void settle() {
        binder->flush();
        QCoreApplication::processEvents();
    }
    void put(screen::Field& field) {
        user.focus(field);
        settle();
        tela.events.clear();
    }

    SampleScreen tela{program};
    QWidget window;
    std::unique_ptr<desktop::Binder> binder;

    QTabWidget* tabs = nullptr;
    QLabel* titulo = nullptr;
    QLabel* foto = nullptr;
    QLineEdit* nome = nullptr;
    QPlainTextEdit* nota = nullptr;
    QLineEdit* cep = nullptr;
    QLineEdit* outro = nullptr;
    QComboBox* cidade = nullptr;
    QListView* log = nullptr;
    QRadioButton* sim = nullptr;
    QRadioButton* nao = nullptr;
    QCheckBox* ativo = nullptr;
    QTableView* grade = nullptr;
    QPushButton* salvar = nullptr;

  private:
    std::function<void()> body_;
};

} // namespace vorta::test
