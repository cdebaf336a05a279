#include "desktop/DesktopApplication.h"

#include "base/Literals.h"
#include "desktop/Style.h"
#include "desktop/Theme.h"
#include "system/ThisSystem.h"

#include <QLocale>
#include <QTranslator>
#include <exception>

namespace vorta::desktop {

namespace {

struct Translation {
    const char* source;
    const char* portuguese;
};
constexpr Translation translations[]{
    {"&Undo", "&Desfazer"},
    {"&Redo", "&Refazer"},
    {"Cu&t", "Recor&tar"},
    {"&Copy", "&Copiar"},
    {"&Paste", "Co&lar"},
    {"Delete", "Excluir"},
    {"Select All", "Selecionar tudo"},
};

/// The words of the edit menu, which come from Qt and not from a screen.
class StandardTexts : public QTranslator {
  public:
    using QTranslator::QTranslator;
    bool isEmpty() const override { return false; }
    QString translate(const char*, const char* source, const char*, int) const override {
        for (const Translation& translation : translations)
            if (qstrcmp(translation.source, source) == 0)
                return QString::fromUtf8(translation.portuguese);
        return {};
    }
};

} // namespace

DesktopApplication::DesktopApplication(int& argc, char** argv) : QApplication(argc, argv) {
    setApplicationName(u"pessoas"_s);
    setApplicationDisplayName({});
    QLocale::setDefault(QLocale(QLocale::Portuguese, QLocale::Brazil));
    setStyle(new Style);
    followDesktop();
    if (const QStringList& others = system::ThisSystem().fonts; !others.isEmpty())
        setFont(FontThatIsThere(font(), others));
    installTranslator(new StandardTexts(this));
    // The screens say when the program ends, not the last window that happens to be open.
    setQuitOnLastWindowClosed(false);
}

void DesktopApplication::followDesktop() {
    setPalette(QPalette()); // the desktop's own, with what it leaves open from the style
    setPalette(ThemeFor(desktopPalette ? desktopPalette() : palette()));
}

bool DesktopApplication::notify(QObject* receiver, QEvent* event) {
    try {
        if (event->type() == QEvent::ThemeChange && receiver->isWindowType())
            followDesktop();
        return QApplication::notify(receiver, event);
    } catch (...) {
        const std::exception_ptr caught = std::current_exception();
        if (onException)
            onException([caught] { std::rethrow_exception(caught); });
        return true;
    }
}

} // namespace vorta::desktop
