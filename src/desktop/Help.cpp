#include "desktop/Help.h"

#include "base/Literals.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFile>
#include <QHeaderView>
#include <QIcon>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QTableWidget>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>
#include <QVBoxLayout>
#include <algorithm>

/// A static library's resources are left out unless somebody asks for them; the macro wants to stand outside.
static void loadManual() {
    Q_INIT_RESOURCE(manual);
}

namespace vorta::desktop {

namespace {

const QString manualName = u"janelaManual"_s;
const QString folder = u":/manual/"_s;

/// The text of the manual, whose pictures are never wider than the page.
class Page : public QTextBrowser {
  public:
    using QTextBrowser::QTextBrowser;

  protected:
    QVariant loadResource(int type, const QUrl& name) override {
        if (type != QTextDocument::ImageResource)
            return QTextBrowser::loadResource(type, name);
        const QImage picture(folder + name.path());
        const int room = std::max(200, viewport()->width() - 2 * static_cast<int>(document()->documentMargin()) - 20);
        return picture.width() > room ? picture.scaledToWidth(room, Qt::SmoothTransformation) : picture;
    }
};

/// The headings, each with the block that it stands in.
void listHeadings(const QTextDocument& document, QListWidget& list) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        if (const int level = block.blockFormat().headingLevel(); level > 1) {
            auto* item = new QListWidgetItem(QString(qsizetype{level - 2} * 3, u' ') + block.text(), &list);
            item->setData(Qt::UserRole, block.position());
        }
}

void goTo(QTextBrowser& page, int position) {
    QTextCursor cursor(page.document());
    cursor.movePosition(QTextCursor::End);
    page.setTextCursor(cursor); // so that the heading comes to the upper edge
    cursor.setPosition(position);
    page.setTextCursor(cursor);
}

QWidget* contents(QTextBrowser& page) {
    auto* headings = new QListWidget;
    headings->setAccessibleName(u"Conteúdo do manual"_s);
    listHeadings(*page.document(), *headings);
    QObject::connect(headings, &QListWidget::currentItemChanged, &page,
                     [&page](QListWidgetItem* item) { goTo(page, item->data(Qt::UserRole).toInt()); });
    return headings;
}

/// Goes on from the place of the last find, and from the beginning behind the end.
void find(QTextBrowser& page, const QString& text) {
    if (page.find(text))
        return;
    page.moveCursor(QTextCursor::Start);
    page.find(text);
}

QLineEdit* finder(QTextBrowser& page) {
    auto* line = new QLineEdit;
    line->setPlaceholderText(u"Procurar no manual (Enter: o próximo)"_s);
    line->setAccessibleName(u"Procurar no manual"_s);
    line->setClearButtonEnabled(true);
    QObject::connect(line, &QLineEdit::returnPressed, &page, [&page, line] { find(page, line->text()); });
    return line;
}

void standBeside(QDialog& dialog, const QWidget& above, QSize wanted) {
    const QRect area = above.screen()->availableGeometry();
    dialog.resize(wanted.boundedTo(area.size() * 9 / 10));
    dialog.move(area.center() - dialog.rect().center());
}

QDialogButtonBox* closing(QDialog& dialog) {
    auto* buttons = new QDialogButtonBox;
    buttons->addButton(u"Fechar"_s, QDialogButtonBox::RejectRole);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    return buttons;
}

} // namespace

QIcon ProgramIcon() {
    loadManual();
    QIcon icon;
    for (const int size : {16, 32, 48, 256}) // drawn beforehand: a reader of drawings is not part of every Qt
        icon.addFile(folder + u"vorta-pessoas-%1.png"_s.arg(size), {size, size});
    return icon;
}

void ShowManual(QWidget& above) {
    if (auto* open = above.findChild<QDialog*>(manualName)) {
        open->raise();
        open->activateWindow();
        return;
    }
    loadManual();
    QFile file(folder + u"manual.md"_s);
    if (!file.open(QIODevice::ReadOnly))
        return;
    auto* dialog = new QDialog(&above);
    dialog->setObjectName(manualName);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(u"Manual do Cadastro de Pessoas"_s);
    auto* page = new Page;
    page->setAccessibleName(u"Manual"_s);
    page->setOpenExternalLinks(true);
    page->document()->setMarkdown(QString::fromUtf8(file.readAll()), QTextDocument::MarkdownDialectGitHub);
    auto* halves = new QSplitter;
    halves->addWidget(contents(*page));
    halves->addWidget(page);
    halves->setStretchFactor(1, 1);
    halves->setSizes({240, 720});
    auto* layout = new QVBoxLayout(dialog);
    QLineEdit* search = finder(*page);
    layout->addWidget(search);
    layout->addWidget(halves, 1);
    layout->addWidget(closing(*dialog));
    standBeside(*dialog, above, QSize(1000, 760));
    dialog->show();
    page->moveCursor(QTextCursor::Start);
    search->setFocus();
}

void ShowKeys(QWidget& above, const QStringList& keys) {
    QDialog dialog(&above);
    dialog.setObjectName(u"janelaTeclas"_s);
    dialog.setWindowTitle(u"Teclas desta tela"_s);
    auto* table = new QTableWidget(static_cast<int>(keys.size()), 2);
    table->setAccessibleName(u"Teclas desta tela"_s);
    table->setHorizontalHeaderLabels({u"Tecla"_s, u"Leva a"_s});
    table->verticalHeader()->hide();
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setTabKeyNavigation(false);
    for (int row = 0; row < keys.size(); ++row)
        for (int col = 0; col < 2; ++col)
            table->setItem(row, col, new QTableWidgetItem(keys[row].section(u'\t', col, col)));
    table->resizeColumnsToContents();
    table->horizontalHeader()->setStretchLastSection(true);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(table);
    layout->addWidget(closing(dialog));
    standBeside(dialog, above, QSize(520, 620));
    dialog.exec();
}

} // namespace vorta::desktop
