#pragma once

#include "desktop/Binding.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>

namespace vorta::desktop {

class LabelBinding : public Binding {
  public:
    LabelBinding(Binder& binder, screen::Field& field, QLabel& label);
    void refresh() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QLabel& label_;
    bool second_ = false; ///< the press of a double click is the second one
};

/// A frame around other fields: a label that is its title.
class FrameBinding : public Binding {
  public:
    FrameBinding(Binder& binder, screen::Field& field, QGroupBox& frame);
    void refresh() override;

  private:
    QGroupBox& frame_;
};

/// A picture keeps its proportions in whatever room the window gives it.
class PictureBinding : public Binding {
  public:
    PictureBinding(Binder& binder, screen::Field& field, QLabel& label);
    void refresh() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void fit();

    QLabel& label_;
    bool second_ = false;
    QString path_;
    QPixmap picture_;
};

/// What is clicked: the click is one event of the screen, which moves the focus first.
class ButtonBinding : public Binding {
  public:
    ButtonBinding(Binder& binder, screen::Field& field, QAbstractButton& button);
    void refresh() override;

  protected:
    QAbstractButton& button_;

  private:
    QKeySequence keys_; ///< those that the screen's map of keys has given it
    QString icon_;
};

class OptionBinding : public ButtonBinding {
  public:
    OptionBinding(Binder& binder, screen::Option& option, QRadioButton& button);
    void refresh() override;

  private:
    screen::Option& option_;
};

class CheckBinding : public ButtonBinding {
  public:
    CheckBinding(Binder& binder, screen::Check& check, QCheckBox& box)
        : ButtonBinding(binder, check, box), check_(check) {}
    void refresh() override;

  private:
    screen::Check& check_;
};

} // namespace vorta::desktop
