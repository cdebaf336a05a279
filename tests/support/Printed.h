#pragma once

#include <QStringList>
#include <ostream>

// How failures and messages show the texts of a test: as they read, not as their bytes. Every test source has this in
// front of it.

inline std::ostream& operator<<(std::ostream& out, const QString& text) {
    return out << text.toStdString();
}
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text << '"';
}
inline void PrintTo(const QStringList& texts, std::ostream* out) {
    *out << texts.join(u'\n');
}
