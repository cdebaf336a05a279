#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

namespace vorta::screen {

class Screen;

enum class Icon { None, Information, Critical };
enum class Buttons { OK, YesNo, YesNoCancel };
enum class Answer { OK, Yes, No, Cancel };

/// What Escape answers to a box with these buttons: what keeps all that was typed. Where only yes and no are offered it
/// answers nothing.
std::optional<Answer> EscapeAnswer(Buttons buttons);

/// A message box as the screens ask for it. An empty title is the application's own. Line breaks in `text` are "\n".
struct Box {
    QString text;
    QString title;
    Icon icon = Icon::None;
    Buttons buttons = Buttons::OK;
};

/// The total of work whose end nobody knows yet.
inline constexpr qint64 unknownTotal = -1;

/// The outside world of one running register. Given at the start; two of them can live in one process.
class Platform {
  public:
    virtual ~Platform() = default;

    /// Shows a box and waits for its answer; the first button is the default.
    virtual Answer messageBox(const Box& box) = 0;
    /// Shows a loaded screen over the active one and returns when it has been unloaded or the program has ended.
    virtual void runModal(Screen& screen) = 0;
    /// A moment to make what showing this screen will need. It may never be shown.
    virtual void prepare(Screen& screen);
    /// Drops what has been prepared and not been used; its screen may be about to go.
    virtual void dropPrepared();
    /// Hands an address ("mailto:...") to the desktop; the answer is not looked at.
    virtual void openAddress(const QString& address) = 0;
    /// Tells how far long work has come; `total` 0 means that the work is over. What is shown may be painted now, but
    /// nothing that the user does is heard, and no handler may run: a read may be under way.
    virtual void progress(qint64 done, qint64 total);

    // What leaves the program. Without a desktop there is nowhere to put it.
    virtual void putOnClipboard(const QString& text);
    /// Asks where a file shall be written, beginning with that name; empty when the user gives up.
    virtual QString askForFile(const QString& suggested);
    /// Writes a page of HTML as a PDF in one go; raises 75 when it cannot be written.
    virtual void writePdf(const QString& html, const QString& path);

    /// The user's own folder for what the program keeps between two starts, without a closing separator; empty where
    /// nothing is kept.
    virtual QString dataFolder() const;
    /// Runs work that can wait for a moment; several wishes in that moment may become one. At once, where nothing can
    /// wait.
    virtual void soon(const std::function<void()>& work);

    /// Root of the installation; its folder "config/" is the fixed place of the configuration files. Without a closing
    /// separator.
    virtual QString home() const = 0;
    /// The clock of this place, as `Moment` holds it.
    virtual QDateTime now() const;

    // Files. Paths may carry back slashes, as configured ones do.
    virtual bool fileExists(const QString& path) const;
    /// The first `most` lines, without their ends, from UTF-8 or Windows-1252 with LF or CRLF. Raises 52 for a path
    /// that names no file (empty, or a folder) and 53 for a file that is not there, cannot be read or is no plain file
    /// of a few lines.
    virtual QStringList readLines(const QString& path, int most) const;
    virtual void removeFile(const QString& path);

    /// The path with this system's separators.
    static QString localPath(const QString& path);
};

} // namespace vorta::screen
