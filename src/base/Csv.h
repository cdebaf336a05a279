#pragma once

#include <QIODevice>
#include <QStringList>

/// Tables as spreadsheets exchange them: records of cells between separators, quoted where a cell holds one.
namespace vorta {

/// A record with its line end. A text that a spreadsheet would take for a formula gets an apostrophe in front, which
/// the reader takes off again; a number stays a number.
QString CsvRecord(const QStringList& cells, QChar separator = u';');
/// What a file for spreadsheets begins with, so that they read its letters as they are.
inline constexpr const char* csvMark = "\xEF\xBB\xBF";

/// Reads the records of a file one by one, so that memory stays flat. UTF-8 with or without its mark, or Windows-1252;
/// the separator (semicolon, comma or tabulation) is the one that the first line has most of. Raises 13, in words that
/// name the line, for what is no such file: other kinds of file, a record beyond a megabyte, quotes left open.
class CsvReader {
  public:
    explicit CsvReader(QIODevice& device);

    /// Goes to the next record that is not blank; false behind the last one.
    bool next();
    const QStringList& cells() const { return cells_; }
    /// The line of the file in which the record begins, from 1.
    qint64 line() const { return recordLine_; }
    QChar separator() const { return QChar::fromLatin1(separator_); }

  private:
    bool readRecord();
    bool readByte(char& byte);
    void fill();
    void begin();
    void add(char byte);
    void endCell();

    QIODevice& device_;
    QByteArray chunk_;
    qsizetype at_ = 0;
    QByteArray record_; ///< its cells, divided by zero bytes
    QStringList cells_;
    qint64 line_ = 1;
    qint64 recordLine_ = 1;
    char separator_ = ';';
};

} // namespace vorta
