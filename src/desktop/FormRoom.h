#pragma once

#include <QWidget>

class QScrollArea;

namespace vorta::desktop {

/// A screen's form in whatever room its window has: what is too large for it scrolls, but the row that the form calls
/// "acoes" is always in view, in several lines if need be.
class FormRoom : public QWidget {
  public:
    /// Raises 91 for a screen without a form.
    explicit FormRoom(const QString& screenName);

    /// The room that shows the whole form, at least what it was drawn with.
    QSize wholeSize() const;
    /// Scrolls to a widget of the form.
    void bringIntoView(QWidget& widget);

  private:
    bool takeActions();
    void layOut(const QWidget& widget);

    QWidget* body_;
    QScrollArea* scroll_;
    QWidget* kept_; ///< what does not scroll
    QSize drawnSize_;
};

} // namespace vorta::desktop
