#pragma once

#include <QString>

/// Texts as two people write the same thing.
namespace vorta::audit {

/// Capitals without accents, digits, and one blank for anything between them: "D´Oeste", "D'OESTE" and "d oeste" are
/// one.
QString Folded(const QString& text);
/// The digits and letters of a document as capitals, without any mark.
QString Bare(const QString& document);
QString Digits(const QString& text);
/// The digits of a phone without leading zeros and the country's number; empty for what is no phone: fewer than eight
/// digits, or one digit over and over.
QString Phone(const QString& text);
/// 64 bits of a text, the same in every run.
quint64 HashOf(const QString& text);

} // namespace vorta::audit
