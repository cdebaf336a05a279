#include "base/Csv.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "base/Windows1252.h"

#include <algorithm>
#include <array>

namespace vorta {

namespace {

constexpr qsizetype chunkBytes = 1 << 16;
constexpr qsizetype mostBytes = 1 << 20;
constexpr char cellEnd = '\0';

/// True for a text that begins as a formula does, behind any apostrophes.
bool beginsFormula(QStringView cell) {
    while (cell.startsWith(u'\''))
        cell = cell.sliced(1);
    return !cell.isEmpty() && u"=+-@\t\r"_s.contains(cell.front());
}

QString written(const QString& cell, QChar separator) {
    QString text = beginsFormula(cell) && !IsNumeric(cell) ? u'\'' + cell : cell;
    const bool quoted = text.contains(separator) || text.contains(u'"') || text.contains(u'\n') ||
                        text.contains(u'\r') || text.startsWith(u' ') || text.endsWith(u' ');
    return quoted ? u'"' + text.replace(u'"', u"\"\""_s) + u'"' : text;
}

[[noreturn]] void refuse(const QString& words) {
    throw RuntimeError(errorNumber::TypeMismatch, words);
}

/// The separator of which a line has most, outside its quotes.
char separatorOf(QByteArrayView line) {
    constexpr std::array<char, 3> known{';', ',', '\t'};
    std::array<int, 3> counts{};
    bool quoted = false;
    for (const char byte : line) {
        quoted ^= byte == '"';
        const auto found = std::find(known.begin(), known.end(), byte);
        if (!quoted && found != known.end())
            ++counts[static_cast<size_t>(found - known.begin())];
    }
    return known[static_cast<size_t>(std::max_element(counts.begin(), counts.end()) - counts.begin())];
}

} // namespace

QString CsvRecord(const QStringList& cells, QChar separator) {
    QStringList all;
    for (const QString& cell : cells)
        all += written(cell, separator);
    return all.join(separator) + u"\r\n"_s;
}

CsvReader::CsvReader(QIODevice& device) : device_(device) {
    begin();
}

void CsvReader::fill() {
    chunk_ = device_.read(chunkBytes);
    at_ = 0;
    if (chunk_.isEmpty() && !device_.atEnd())
        throw RuntimeError(errorNumber::FileNotFound, u"O arquivo não pode ser lido: %1"_s.arg(device_.errorString()));
}

void CsvReader::begin() {
    fill();
    for (const char* mark : {"\xFF\xFE", "\xFE\xFF"})
        if (chunk_.startsWith(mark))
            refuse(u"O arquivo está em UTF-16; grave a planilha como CSV (UTF-8)"_s);
    if (chunk_.startsWith(csvMark))
        at_ = 3;
    const qsizetype end = chunk_.indexOf('\n', at_);
    const QByteArrayView first = QByteArrayView(chunk_).sliced(at_, (end < 0 ? chunk_.size() : end + 1) - at_);
    constexpr QByteArrayView told("sep=");
    if (first.startsWith(told) && first.size() > told.size()) {
        separator_ = first[told.size()];
        at_ += first.size();
        ++line_;
    } else {
        separator_ = separatorOf(first);
    }
}

bool CsvReader::readByte(char& byte) {
    if (at_ == chunk_.size())
        fill();
    if (chunk_.isEmpty())
        return false;
    byte = chunk_[at_++];
    if (byte == cellEnd)
        refuse(u"Linha %1: o arquivo não é um texto; grave a planilha como CSV"_s.arg(line_));
    line_ += byte == '\n';
    return true;
}

void CsvReader::add(char byte) {
    if (record_.size() >= mostBytes)
        refuse(u"Linha %1: mais de 1 MB sem fim de registro; não é uma planilha"_s.arg(recordLine_));
    record_ += byte;
}

/// One record into `record_`; false when there is none.
bool CsvReader::readRecord() {
    record_.clear();
    recordLine_ = line_;
    bool quoted = false, closing = false, any = false;
    qsizetype cellBegin = 0;
    for (char byte; readByte(byte);) {
        any = true;
        if (quoted && !closing) {
            closing = byte == '"';
            if (!closing)
                add(byte);
        } else if (closing && byte == '"') { // a quote within quotes is written twice
            add(byte);
            closing = false;
        } else if (byte == separator_ || byte == '\n') {
            if (byte == '\n')
                return true;
            add(cellEnd);
            cellBegin = record_.size();
            quoted = closing = false;
        } else if (byte == '"' && record_.size() == cellBegin && !closing) {
            quoted = true;
        } else if (byte != '\r') {
            add(byte);
        }
    }
    if (quoted && !closing)
        refuse(u"Linha %1: há aspas abertas que não se fecham"_s.arg(recordLine_));
    return any;
}

bool CsvReader::next() {
    while (readRecord()) {
        cells_ = DecodedText(record_).split(QChar(cellEnd));
        for (QString& cell : cells_)
            if (cell.startsWith(u'\'') && beginsFormula(cell))
                cell.remove(0, 1);
        const bool blank =
            std::all_of(cells_.begin(), cells_.end(), [](const QString& cell) { return Trim(cell).isEmpty(); });
        if (!blank)
            return true;
    }
    return false;
}

} // namespace vorta
