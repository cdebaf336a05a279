#include "desktop/DesktopApplication.h"

#include "base/Literals.h"
#include "desktop/Style.h"

#include <QLocale>
#include <QPalette>
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

QPalette colours() {
    QPalette palette(QColor(0xF1, 0xF3, 0xF6));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, QColor(0xF6, 0xF8, 0xFA));
    palette.setColor(QPalette::Highlight, QColor(0x1F, 0x6F, 0xB2));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Inactive, QPalette::Highlight, QColor(0xC9, 0xDD, 0xEE));
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText, Qt::black);
    palette.setColor(QPalette::PlaceholderText, QColor(0x80, 0x86, 0x8E));
    return palette;
}

} // namespace

DesktopApplication::DesktopApplication(int& argc, char** argv) : QApplication(argc, argv) {
    setApplicationName(u"pessoas"_s);
    setApplicationDisplayName({});
    QLocale::setDefault(QLocale(QLocale::Portuguese, QLocale::Brazil));
    setStyle(new Style);
    setPalette(colours());
    installTranslator(new StandardTexts(this));
    // The screens say when the program ends, not the last window that happens to be open.
    setQuitOnLastWindowClosed(false);
}

bool DesktopApplication::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        const std::exception_ptr caught = std::current_exception();
        if (onException)
            onException([caught] { std::rethrow_exception(caught); });
        return true;
    }
}

bool HasDisplay() {
#ifdef Q_OS_LINUX
    return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
           !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
#else
    return true;
#endif
}

} // namespace vorta::desktop
