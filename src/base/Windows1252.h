#pragma once

#include <QByteArrayView>
#include <QString>

/// Windows-1252: the repertoire of the data, and the form of text files that are not UTF-8.
namespace vorta {

/// True for a character of the repertoire.
bool InRepertoire(QChar character);
/// True when every character of the text belongs to the repertoire.
bool InRepertoire(const QString& text);
/// The text as the data can hold it: what is not in the repertoire becomes what is nearest to it there, or is left out.
QString OnlyRepertoire(const QString& text);

/// The bytes of a text in Windows-1252; raises 13 for a text outside the repertoire.
QByteArray ToWindows1252(const QString& text);
/// The text of such bytes. The five bytes that the set leaves open become the control characters of their numbers,
/// which are no part of the repertoire.
QString FromWindows1252(QByteArrayView bytes);

/// The text of a file or of one of its lines: UTF-8 where the bytes are valid as such, otherwise Windows-1252.
QString DecodedText(QByteArrayView bytes);

} // namespace vorta
