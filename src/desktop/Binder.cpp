#include "desktop/Binder.h"

#include "desktop/Binding.h"
#include "desktop/Colours.h"
#include "desktop/Forms.h"
#include "desktop/Letters.h"
#include "desktop/Names.h"
#include "screen/Program.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QScopedValueRollback>
#include <QTabWidget>
#include <QWidget>
#include <algorithm>

namespace vorta::desktop {

Binder::Binder(screen::Screen& screen, screen::User& user, QWidget& form, QWidget& window)
    : screen_(screen), user_(user), form_(form), window_(window), background_(screen::colour::ButtonFace) {
    for (screen::Field* field : screen.fields())
        fields_.insert(WidgetName(field->name()), field);
    for (const FieldKey& key : FieldKeys(screen.name()))
        keys_.insert(key.field, key.keys);
    bind(form);
    screen.setObserver(this);
    window.installEventFilter(this);
    schedule();
}

bool Binder::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange) {
        for (const auto& [field, bound] : bindings_) {
            bound->forgetColours();
            mark(*field);
        }
        if (background_ != screen::colour::ButtonFace)
            showGround();
    }
    return false;
}

namespace {

/// The letter of a label asks for the field also where the window has put its own focus on that field before, as it
/// does behind a change of page.
class LetterOfLabel : public QObject {
  public:
    LetterOfLabel(QObject& owner, QLabel& label, std::function<void()> reached)
        : QObject(&owner), reached_(std::move(reached)) {
        label.installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Shortcut)
            QMetaObject::invokeMethod(this, reached_, Qt::QueuedConnection);
        return false;
    }

  private:
    std::function<void()> reached_;
};

} // namespace

void Binder::bind(const QWidget& part) {
    const QScopedValueRollback guard(refreshing_, true);
    for (QWidget* widget : part.findChildren<QWidget*>())
        if (screen::Field* field = fields_.value(widget->objectName()); field && !binding(*field)) {
            NameWidget(screen_.name(), field->name(), *widget);
            if (const QString keys = keys_.value(field->name()); !keys.isEmpty() && MarkWidget(*widget, keys))
                keys_.remove(field->name());
            if (QLabel* label = LabelOf(*widget))
                new LetterOfLabel(*this, *label, [this, field] { act([&] { user_.focus(*field); }); });
            bindings_.emplace(field, MakeBinding(*this, *field, *widget));
            dirty_ += field;
        }
}

void Binder::makePage(QWidget& page) {
    if (SetUpPage(page))
        bind(page);
}

void Binder::complete() {
    for (const QTabWidget* tabs : form_.findChildren<QTabWidget*>())
        for (int page = 0; page < tabs->count(); ++page)
            makePage(*tabs->widget(page));
    orderTabs();
    flush();
}

/// The order of the screen, for helpers that ask the window which field comes next.
void Binder::orderTabs() {
    QWidget* before = nullptr;
    for (const screen::Field* field : screen_.fields())
        if (const Binding* bound = field->takesFocus() ? binding(*field) : nullptr) {
            if (before)
                QWidget::setTabOrder(before, &bound->widget());
            before = &bound->widget();
        }
}

Binder::~Binder() {
    screen_.setObserver(nullptr);
}

Binding* Binder::binding(const screen::Field& field) const {
    const auto found = bindings_.find(&field);
    return found == bindings_.end() ? nullptr : found->second.get();
}

bool Binder::isOpen() const {
    return screen_.isLoaded() && !screen_.program().hasEnded();
}

bool Binder::act(const std::function<void()>& event) {
    event();
    flush();
    if (isOpen())
        return true;
    if (onOver)
        onOver();
    return false;
}

void Binder::fieldChanged(screen::Field& field) {
    mark(field);
}

void Binder::mark(const screen::Field& field) {
    dirty_ += &field;
    schedule();
}

void Binder::screenChanged(screen::Screen&) {
    screenDirty_ = true;
    if (focus_ != screen_.focus()) {
        const screen::Field* left = std::exchange(focus_, screen_.focus());
        for (const screen::Field* field : {left, focus_})
            if (field)
                dirty_ += field;
    }
    schedule();
    // Long work begins right behind the hourglass and lets no other event through.
    const bool busy = screen_.pointer() == screen::Pointer::Hourglass;
    if (busy == (window_.cursor().shape() == Qt::WaitCursor))
        return;
    window_.setCursor(busy ? Qt::WaitCursor : Qt::ArrowCursor);
    if (busy)
        busyInput_.begin();
    else
        workIsOver();
    if (busy && window_.isVisible())
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::ExcludeSocketNotifiers);
}

void Binder::workIsOver() {
    busyInput_.end();
    // A grid shows its first rows while others come.
    for (const screen::Field* field : fields_)
        if (field->kind() == screen::FieldKind::Grid)
            dirty_ += field;
}

void Binder::schedule() {
    if (std::exchange(scheduled_, true))
        return;
    QMetaObject::invokeMethod(
        this, [this] { flush(); }, Qt::QueuedConnection);
}

void Binder::flush() {
    scheduled_ = false;
    if (refreshing_)
        return;
    const QScopedValueRollback guard(refreshing_, true);
    // A page that comes to the front may have to be made, and its fields shown, on the way.
    while (!dirty_.isEmpty())
        for (const screen::Field* field : std::exchange(dirty_, {}))
            if (Binding* shown = binding(*field))
                shown->refresh();
    if (std::exchange(screenDirty_, false))
        showScreen();
    if (isOpen())
        showFocus();
}

void Binder::showScreen() {
    window_.setWindowTitle(screen_.caption().isEmpty() ? screen::Program::applicationTitle() : screen_.caption());
    if (std::exchange(placings_, screen_.placings()) != screen_.placings() && onPlacing)
        onPlacing();
    if (std::exchange(background_, screen_.background()) != screen_.background())
        showGround();
}

void Binder::showGround() {
    QPalette palette;
    palette.setColor(QPalette::Window, ColourOf(background_));
    window_.setPalette(palette);
}

void Binder::showFocus() {
    if (!screen_.focus()) {
        if (QWidget* holder = window_.focusWidget())
            holder->clearFocus();
        return;
    }
    Binding* bound = binding(*screen_.focus());
    // A field on a page that is not in front keeps the focus of the screen, but no widget can show it.
    if (bound && bound->widget().isVisibleTo(&window_) && window_.focusWidget() != &bound->widget())
        bound->widget().setFocus(Qt::OtherFocusReason);
}

bool Binder::switchPage(const screen::Field& from, const QKeyEvent& key) {
    const bool tab = key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab;
    const bool page = key.key() == Qt::Key_PageDown || key.key() == Qt::Key_PageUp;
    if (!key.modifiers().testFlag(Qt::ControlModifier) || (!tab && !page))
        return false;
    const bool back = key.key() == Qt::Key_PageUp || key.key() == Qt::Key_Backtab;
    const auto& fields = screen_.fields();
    const auto first =
        std::ranges::find_if(fields, [](auto* one) { return one->kind() == screen::FieldKind::TabStrip; });
    if (first == fields.end())
        return false;
    // Ctrl+Tab walks the outer pages, Ctrl+PageDown those around the field.
    auto* strip = page && from.strip() ? from.strip() : static_cast<screen::TabStrip*>(*first);
    const auto count = static_cast<int>(strip->captions().size());
    act([&] { user_.chooseTab(*strip, (strip->current() + (back ? count - 1 : 1)) % count); });
    return true;
}

} // namespace vorta::desktop
