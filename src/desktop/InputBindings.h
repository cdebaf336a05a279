#pragma once

#include "desktop/Binding.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QStringListModel>

namespace vorta::desktop {

/// An input of one line. The widget edits by itself, so that undo, word steps and the clipboard are those of the
/// desktop; each character goes through the field's rules before, each new text to the field behind.
class LineBinding : public Binding {
  public:
    LineBinding(Binder& binder, screen::Field& field, QWidget& widget, QLineEdit& edit);
    void refresh() override;

  protected:
    bool mousePressed(QObject* watched, QMouseEvent& mouse) override;
    bool specialPressed(screen::Key key) override;
    bool characterTyped(QChar typed) override;

    QLineEdit& edit_;

  private:
    void showText();
    void showSelection();
    void tellSelection();
    void edited();
};

class TextBinding : public LineBinding {
  public:
    TextBinding(Binder& binder, screen::Field& field, QLineEdit& edit) : LineBinding(binder, field, edit, edit) {}
};

/// A masked field: its keys are the field's own business, the widget only shows.
class MaskedBinding : public LineBinding {
  public:
    MaskedBinding(Binder& binder, screen::MaskedField& field, QLineEdit& edit);

  protected:
    bool keyPressed(QKeyEvent& key) override;
    bool specialPressed(screen::Key key) override;
    bool characterTyped(QChar typed) override;
};

/// A long note of several shown lines.
class NotesBinding : public Binding {
  public:
    NotesBinding(Binder& binder, screen::Field& field, QPlainTextEdit& edit);
    void refresh() override;

  protected:
    bool mousePressed(QObject* watched, QMouseEvent& mouse) override;
    bool specialPressed(screen::Key key) override;
    bool characterTyped(QChar typed) override;

  private:
    void edited();
    void tellSelection();
    void cutSurplus();

    QPlainTextEdit& edit_;
};

/// A text with a list that drops down.
class ListBinding : public LineBinding {
  public:
    ListBinding(Binder& binder, screen::ListField& list, QComboBox& combo);
    void refresh() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    bool mousePressed(QObject* watched, QMouseEvent& mouse) override;
    bool keyPressed(QKeyEvent& key) override;

  private:
    void dropDown();
    void step(int by);
    void showItems();

    screen::ListField& list_;
    QComboBox& combo_;
    QStringListModel items_;
};

/// A list that is always open.
class OpenListBinding : public Binding {
  public:
    OpenListBinding(Binder& binder, screen::ListField& list, QListView& view);
    void refresh() override;

  private:
    screen::ListField& list_;
    QListView& view_;
    QStringListModel items_;
};

} // namespace vorta::desktop
