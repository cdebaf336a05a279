#pragma once

#include "desktop/Binding.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QStringListModel>

namespace vorta::desktop {

/// An input that the widget edits by itself, so that undo, word steps and the clipboard are those of the desktop; each
/// character goes through the field's rules before, each new text to the field behind.
class EditBinding : public Binding {
  public:
    using Binding::Binding;

  protected:
    bool mousePressed(QObject* watched, QMouseEvent& mouse) override;
    bool specialPressed(screen::Key key) override;
    bool cursorPressed(screen::Key) override { return false; }
    bool characterTyped(QChar typed) override;

    /// Hands what the widget has done to its text to the field, which may allow less of it. The cursor is where the
    /// widget has left it.
    void tellText(const QString& text, int cursor);
    /// Hands the selection to the field.
    void tellSelection(int start, int length);

    virtual void insert(QChar character) = 0;
};

/// An input of one line.
class LineBinding : public EditBinding {
  public:
    LineBinding(Binder& binder, screen::Field& field, QWidget& widget, QLineEdit& edit);
    void refresh() override;

  protected:
    void insert(QChar character) override { edit_.insert(character); }

    QLineEdit& edit_;

  private:
    int selectionStart() const;
    void showText();
    void showSelection();
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
class NotesBinding : public EditBinding {
  public:
    NotesBinding(Binder& binder, screen::Field& field, QPlainTextEdit& edit);
    void refresh() override;

  protected:
    void insert(QChar character) override { edit_.insertPlainText(character); }

  private:
    void selected();
    void showText();

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
    void walk(screen::Key key);
    void showPopup();
    bool popupKey(QKeyEvent& key);
    void showItems();

    screen::ListField& list_;
    QComboBox& combo_;
    QStringListModel items_;
    QAbstractItemView* popup_ = nullptr; ///< none until the list has been dropped down once
};

/// A list that is always open.
class OpenListBinding : public Binding {
  public:
    OpenListBinding(Binder& binder, screen::ListField& list, QListView& view);
    void refresh() override;

  protected:
    bool cursorPressed(screen::Key key) override;

  private:
    screen::ListField& list_;
    QListView& view_;
    QStringListModel items_;
};

} // namespace vorta::desktop
