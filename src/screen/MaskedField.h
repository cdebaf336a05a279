#pragma once

#include "screen/Field.h"

namespace vorta::screen {

/// A field whose text follows a mask: "#" is a digit's place, "A" one of a digit or a capital letter (A to Z), every
/// other character a literal. A place that is not filled shows the prompt "_", so a blank postal code reads
/// "_____-___". Without a mask the field is a plain text. Where a mask takes letters, small ones become capitals.
class MaskedField : public Field {
  public:
    MaskedField(Screen* screen, const char* name, const QString& mask = {});

    const QString& mask() const { return mask_; }
    /// An empty mask leaves the text as it is shown, prompts and literals included. Any other mask keeps a text that is
    /// neither empty nor blank, and turns an empty or blank one into its own blank form.
    void setMask(const QString& mask);
    /// The form with no place filled; empty without a mask.
    QString blank() const;
    /// True for a text that has at each place of the mask what belongs there, or the prompt.
    bool fits(const QString& text) const;
    /// True when the text is empty or holds nothing but prompts and literals.
    bool isBlank() const;

    /// A text that fits the mask is shown as it is. Another has its digits poured into the places: when they are as
    /// many, or fewer in a text of digits alone or one that begins as the mask does. Letters are poured along only when
    /// they and the digits fill every place, and nothing but marks and blanks is left. Any other text is shown raw, as
    /// it is of another form and poured would be another value. The empty text gives the blank form.
    void setText(const QString& text) override;
    /// What a text from outside brings for this field. Where the mask takes letters, words around a whole value
    /// ("CNPJ: 12.ABC.345/01DE-35") would run into its places: the value is lifted out of them. Any other text is given
    /// back as it came.
    QString lifted(const QString& text) const;

    /// Editing by keys, at the selection, but never beyond what is filled: a digit or letter fills the next place if it
    /// belongs there, a literal where it stands is passed over, anything else is refused and changes nothing. A raw
    /// text takes what has a place somewhere in the mask and literals, up to the limit of the field or else the length
    /// of its mask. Without a mask any character is inserted up to the maximum length.
    void typeCharacter(QChar typed);
    void backspace();
    void deleteForward();

  private:
    bool takesLetters() const;
    /// A character as the mask takes it: a small letter is a capital where letters have a place.
    QChar folded(QChar character) const;
    QString folded(const QString& text) const;
    /// True for a character that has a place somewhere in the mask.
    bool hasPlace(QChar character) const;
    /// True when the text has what the mask has at each place, as far as both go.
    bool follows(const QString& text) const;
    /// What a text gives to pour into the places; empty when it stays raw.
    QString pourable(const QString& text) const;
    QString poured(const QString& content) const;
    void clearSelected();
    /// Puts a character where the cursor is; false when it is refused.
    bool put(QChar character);
    bool putIntoForm(QChar character);
    bool putRaw(QChar character);

    QString mask_;
};

} // namespace vorta::screen
