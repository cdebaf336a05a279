#include "robot/windows/WidgetLook.h"

#include "base/Literals.h"
#include "desktop/Colours.h"
#include "screen/MaskedField.h"
#include "screen/Platform.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QComboBox>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTableView>
#include <QToolButton>
#include <algorithm>
#include <array>

namespace vorta::robot {

namespace {

using desktop::ColourOf;
using screen::Colour;
using screen::Field;
using screen::FieldKind;

using Seen = std::optional<QString>;
using W = const QWidget&;
using F = const Field&;
using Q = const Question&;

constexpr int noLimit = 32767; ///< what a line that takes any length says

QString told(bool value) {
    return value ? u"true"_s : u"false"_s;
}

/// The line in which a text is shown and edited; none for a widget without one.
const QLineEdit* lineOf(W widget) {
    if (const auto* combo = qobject_cast<const QComboBox*>(&widget))
        return combo->lineEdit();
    return qobject_cast<const QLineEdit*>(&widget);
}

/// The part of a widget that shows its content.
W contentOf(W widget) {
    if (const auto* area = qobject_cast<const QAbstractScrollArea*>(&widget))
        return *area->viewport();
    const QLineEdit* line = lineOf(widget);
    return line ? *line : widget;
}

Seen text(W widget, F field, Q) {
    if (field.kind() == FieldKind::Picture)
        return {};
    if (const QLineEdit* line = lineOf(widget))
        return line->text();
    if (const auto* notes = qobject_cast<const QPlainTextEdit*>(&widget))
        return notes->toPlainText();
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        return label->text();
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        return button->text();
    if (const auto* list = qobject_cast<const QListView*>(&widget))
        return list->currentIndex().data().toString();
    if (const auto* tabs = qobject_cast<const QTabWidget*>(&widget))
        return tabs->tabText(tabs->currentIndex());
    return {};
}

Seen locked(W widget, F, Q) {
    if (const QLineEdit* line = lineOf(widget))
        return told(line->isReadOnly());
    if (const auto* notes = qobject_cast<const QPlainTextEdit*>(&widget))
        return told(notes->isReadOnly());
    return {};
}

Seen checked(W widget, F, Q) {
    const auto* button = qobject_cast<const QAbstractButton*>(&widget);
    return button ? Seen(told(button->isChecked())) : Seen();
}

/// A mask shows by the form that it gives the text; one whose text is shown raw is not to be seen. Where there is
/// none, an empty field shows nothing.
Seen mask(W widget, F field, Q) {
    const auto* masked = dynamic_cast<const screen::MaskedField*>(&field);
    const QLineEdit* line = lineOf(widget);
    if (!masked || !line || !masked->fits(field.text()))
        return {};
    if (masked->mask().isEmpty())
        return line->text();
    return masked->fits(line->text()) ? masked->mask() : line->text();
}

/// A line that shows a text longer than the field's limit has given way for that text and no further.
Seen maxLength(W widget, F field, Q) {
    const QLineEdit* line = lineOf(widget);
    if (!line)
        return {};
    const int limit = line->maxLength() == noLimit ? 0 : line->maxLength();
    // Under a mask the line is free, and the field itself says what still fits.
    const auto* masked = dynamic_cast<const screen::MaskedField*>(&field);
    if (masked && !masked->mask().isEmpty() && limit == 0)
        return QString::number(field.maxLength());
    const bool gaveWay = field.maxLength() > 0 && limit > field.maxLength() && limit == line->text().size();
    return QString::number(gaveWay ? field.maxLength() : limit);
}

/// A label's weight belongs to the form, which may print it bold; what the field asks to be bold must be.
Seen bold(W widget, F field, Q) {
    const bool formDecides = field.kind() == FieldKind::Label && !field.bold();
    return formDecides ? Seen() : Seen(told(contentOf(widget).font().bold()));
}

QString numberOf(const QColor& shown, Colour asked, const QColor& expected) {
    if (shown.rgb() == expected.rgb())
        return QString::number(asked);
    return QString::number(shown.red() | shown.green() << 8 | shown.blue() << 16);
}

bool paintsItsGround(W widget) {
    return widget.autoFillBackground() || widget.isWindow() || qobject_cast<const QLineEdit*>(&widget) ||
           qobject_cast<const QPushButton*>(&widget) || qobject_cast<const QToolButton*>(&widget);
}

/// A part that does not paint its ground lets that of the widget around it through.
Seen background(W widget, F field, Q) {
    const QWidget* painting = &contentOf(widget);
    while (!paintsItsGround(*painting))
        painting = painting->parentWidget();
    return numberOf(painting->palette().color(painting->backgroundRole()), field.background(),
                    ColourOf(field.background()));
}

/// The text of a field that takes input stays as readable when it takes none; any other is meant as it is when enabled.
Seen foreground(W widget, F field, Q) {
    W content = contentOf(widget);
    const bool input = lineOf(widget) || qobject_cast<const QAbstractScrollArea*>(&widget);
    const QPalette& palette = content.palette();
    return numberOf(input ? palette.color(QPalette::Text) : palette.color(QPalette::Active, content.foregroundRole()),
                    field.foreground(), desktop::TextColourOf(field.foreground()));
}

/// An image file as it looks in that size; none for a file that is no image.
QImage imageOf(const QString& path, QSize size) {
    const QPixmap file(path);
    return file.isNull() || size.isEmpty()
               ? file.toImage()
               : file.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).toImage();
}

Seen picture(W widget, F field, Q) {
    const QString path = screen::Platform::localPath(field.picture());
    QImage shown;
    QImage asked;
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        shown = button->icon().pixmap(button->iconSize()).toImage();
        asked = QIcon(path).pixmap(button->iconSize()).toImage();
    } else if (field.kind() == FieldKind::Picture) {
        shown = static_cast<const QLabel&>(widget).pixmap(Qt::ReturnByValue).toImage();
        asked = imageOf(path, shown.size());
    } else {
        return {};
    }
    if (shown == asked)
        return QFileInfo(path).fileName();
    return shown.isNull() ? u"no picture"_s : u"another picture"_s;
}

Seen items(W widget, F, Q question) {
    const QAbstractItemModel* items = nullptr;
    if (const auto* combo = qobject_cast<const QComboBox*>(&widget))
        items = combo->model();
    else if (const auto* view = qobject_cast<const QListView*>(&widget))
        items = view->model();
    if (!items)
        return {};
    return question.property == u"items" ? QString::number(items->rowCount())
                                         : items->index(question.row, 0).data().toString();
}

Seen cells(W widget, F, Q question) {
    const auto* view = qobject_cast<const QTableView*>(&widget);
    if (!view)
        return {};
    const QAbstractItemModel& rows = *view->model();
    if (question.property == u"rows")
        return QString::number(rows.rowCount() + 1);
    if (question.property == u"cols")
        return QString::number(rows.columnCount());
    if (question.property == u"row")
        return QString::number(view->currentIndex().row() + 1);
    return question.row == 0 ? rows.headerData(question.col, Qt::Horizontal).toString()
                             : rows.index(question.row - 1, question.col).data().toString();
}

struct Sight {
    const char* property;
    Seen (*look)(W widget, F field, Q question);
};

constexpr std::array sights{
    Sight{"text", text},
    Sight{"enabled", [](W widget, F, Q) { return Seen(told(widget.isEnabled())); }},
    Sight{"visible", [](W widget, F, Q) { return Seen(told(!widget.isHidden())); }},
    Sight{"locked", locked},
    Sight{"checked", checked},
    Sight{"mask", mask},
    Sight{"maxlength", maxLength},
    Sight{"tooltip", [](W widget, F, Q) { return Seen(widget.toolTip()); }},
    Sight{"background", background},
    Sight{"foreground", foreground},
    Sight{"bold", bold},
    Sight{"picture", picture},
    Sight{"items", items},
    Sight{"item", items},
    Sight{"rows", cells},
    Sight{"cols", cells},
    Sight{"row", cells},
    Sight{"cell", cells},
};

} // namespace

std::optional<QString> LookAt(const QWidget& widget, const Field& field, const Question& question) {
    const auto sight = std::ranges::find_if(
        sights, [&](const Sight& row) { return question.property == QLatin1StringView(row.property); });
    return sight == sights.end() ? Seen() : sight->look(widget, field, question);
}

} // namespace vorta::robot
