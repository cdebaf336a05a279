#pragma once

#include "screen/Field.h"

namespace vorta::screen {

/// A field whose text follows a mask: "#" is a digit's place, every other character a literal. A place without its
/// digit shows the prompt "_", so a blank postal code reads "_____-___". Without a mask the field is a plain text.
class MaskedField : public Field {
  public:
    MaskedField(Screen* screen, const char* name, const QString& mask = {});

    const QString& mask() const { return mask_; }
    /// An empty mask leaves the text as it is shown, prompts and literals included. Any other mask keeps a text that is
    /// neither empty nor blank, and turns an empty or blank one into its own blank form.
    void setMask(const QString& mask);
    /// The form without any digit; empty without a mask.
    QString blank() const;
    /// True when the text is empty or holds nothing but prompts and literals.
    bool isBlank() const;

    /// A text that fits the mask is shown as it is. Another has its digits poured into the places: when they are as
    /// many, or fewer in a text of digits alone or one that begins as the mask does. Any other is shown raw, as it is
    /// of another form and poured would be another value. The empty text gives the blank form.
    void setText(const QString& text) override;

    /// Editing by keys, at the selection: a digit fills the next place, a literal typed where it stands is passed over,
    /// anything else is refused and changes nothing, the selection included. A raw text takes digits and literals up to
    /// the limit of the field or else the length of its mask. Without a mask any character is inserted up to the
    /// maximum length.
    void typeCharacter(QChar character);
    void backspace();
    void deleteForward();

  private:
    QString blankOf(const QString& mask) const;
    bool fits(const QString& text) const;
    /// True when the text has what the mask has at each place, as far as both go.
    bool follows(const QString& text) const;
    bool canPour(const QString& text, const QString& digits) const;
    QString poured(const QString& digits) const;
    void clearSelected();
    /// Puts a character where the cursor is; false when it is refused.
    bool put(QChar character);
    bool putIntoForm(QChar character);
    bool putRaw(QChar character);

    QString mask_;
};

} // namespace vorta::screen
