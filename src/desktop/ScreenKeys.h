#pragma once

#include <QObject>
#include <QStringList>
#include <functional>

class QWidget;

namespace vorta::desktop {

class Binder;

/// The keys of a screen's window that no label and no caption carries: help, pages, a new search, the list, saving.
class ScreenKeys : public QObject {
  public:
    ScreenKeys(Binder& binder, QWidget& window);

    /// All keys of the screen as it stands, "key\twhat it does" each.
    QStringList table() const;

  private:
    /// One that does something by itself.
    void add(const QString& keys, const QString& what, std::function<void()> does);
    void addPages();
    void addFields();
    void addOperations();

    void reach(const QString& field);
    void click(const QString& field);
    void newSearch();
    void goToList();

    Binder& binder_;
    QWidget& window_;
    QStringList own_; ///< rows of `table`
};

/// What a field is called in front of its user: its caption, or what its label says.
QString CalledOf(const QWidget& widget);

} // namespace vorta::desktop
