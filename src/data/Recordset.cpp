#include "data/Recordset.h"

#include "base/Moment.h"
#include "base/RuntimeError.h"

#include <algorithm>
#include <cstring>
#include <map>

namespace vorta::data {

namespace {

/// First byte of a packed value; from `ShortText` on it is a text whose length is the rest.
enum Tag : quint8 { Null, Integer, DecimalNumber, Date, DateWithTime, LongText, ShortText = 16 };
constexpr std::size_t longestShortText = 255 - ShortText;

void putNumber(std::string& bytes, quint64 number) {
    for (; number >= 0x80; number >>= 7)
        bytes += static_cast<char>(number | 0x80);
    bytes += static_cast<char>(number);
}

quint64 takeNumber(const char*& at) {
    quint64 number = 0;
    for (int shift = 0;; shift += 7) {
        const auto byte = static_cast<quint8>(*at++);
        number |= static_cast<quint64>(byte & 0x7f) << shift;
        if (byte < 0x80)
            return number;
    }
}

/// Folds the sign into the lowest bit, so that small negative numbers stay short.
quint64 folded(qint64 number) {
    return (static_cast<quint64>(number) << 1) ^ static_cast<quint64>(number >> 63);
}
qint64 unfolded(quint64 number) {
    return static_cast<qint64>(number >> 1) ^ -static_cast<qint64>(number & 1);
}

QString takeText(const char*& at, std::size_t length) {
    const char* const bytes = at;
    at += length;
    return QString::fromUtf8(bytes, static_cast<qsizetype>(length));
}

void skip(const char*& at) {
    const auto tag = static_cast<quint8>(*at++);
    if (tag >= ShortText) {
        at += tag - ShortText;
        return;
    }
    switch (tag) {
    case LongText: {
        const quint64 length = takeNumber(at);
        at += length;
        return;
    }
    case DecimalNumber:
    case DateWithTime:
        takeNumber(at);
        [[fallthrough]];
    case Integer:
    case Date:
        takeNumber(at);
        return;
    default:
        return;
    }
}

Value take(const char*& at) {
    const auto tag = static_cast<quint8>(*at++);
    if (tag >= ShortText)
        return takeText(at, tag - ShortText);
    switch (tag) {
    case LongText: {
        const quint64 length = takeNumber(at);
        return takeText(at, length);
    }
    case Integer:
        return unfolded(takeNumber(at));
    case DecimalNumber: {
        const int scale = static_cast<int>(takeNumber(at));
        return Decimal{unfolded(takeNumber(at)), scale};
    }
    case Date:
        return Moment(QDate::fromJulianDay(unfolded(takeNumber(at))));
    case DateWithTime: {
        const QDate day = QDate::fromJulianDay(unfolded(takeNumber(at)));
        return Moment(day, QTime::fromMSecsSinceStartOfDay(static_cast<int>(takeNumber(at))));
    }
    default:
        return {};
    }
}

} // namespace

/// Packs the rows as they come and finds their values again. A row is a run of packed values; rows lie in blocks that
/// never move.
class Recordset::Arena : public RowSink {
  public:
    void columns(const QStringList& names) override { names_ = names; }
    void beginRow() override { packed_.clear(); }
    void null() override { packed_ += static_cast<char>(Null); }
    void integer(qint64 value) override {
        packed_ += static_cast<char>(Integer);
        putNumber(packed_, folded(value));
    }
    void decimal(Decimal value) override {
        packed_ += static_cast<char>(DecimalNumber);
        putNumber(packed_, static_cast<quint64>(value.scale));
        putNumber(packed_, folded(value.unscaled));
    }
    void text(std::string_view utf8) override {
        if (utf8.size() <= longestShortText) {
            packed_ += static_cast<char>(ShortText + utf8.size());
        } else {
            packed_ += static_cast<char>(LongText);
            putNumber(packed_, utf8.size());
        }
        packed_ += utf8;
    }
    void date(const QDateTime& value) override {
        const int time = value.time().msecsSinceStartOfDay();
        packed_ += static_cast<char>(time == 0 ? Date : DateWithTime);
        putNumber(packed_, folded(value.date().toJulianDay()));
        if (time != 0)
            putNumber(packed_, static_cast<quint64>(time));
    }
    void endRow() override {
        rows_.push_back(place(packed_.size()));
        std::memcpy(rows_.back(), packed_.data(), packed_.size());
    }

    const QStringList& names() const { return names_; }
    int rowCount() const { return static_cast<int>(rows_.size()); }

    int indexOf(QStringView name) const {
        const auto found = std::find_if(names_.begin(), names_.end(), [name](const QString& column) {
            return column.size() == name.size() && name.compare(column, Qt::CaseInsensitive) == 0;
        });
        return found == names_.end() ? -1 : static_cast<int>(found - names_.begin());
    }

    Value at(int row, int column) {
        if (!overwritten_.empty())
            if (const auto changed = overwritten_.find({row, column}); changed != overwritten_.end())
                return changed->second;
        if (row != readRow_ || column < readColumn_) {
            readRow_ = row;
            readColumn_ = 0;
            reading_ = rows_[static_cast<std::size_t>(row)];
        }
        for (; readColumn_ < column; ++readColumn_)
            skip(reading_);
        const char* at = reading_;
        return take(at);
    }

    void overwrite(int row, int column, const Value& value) { overwritten_[{row, column}] = value; }

  private:
    static constexpr std::size_t blockSize = 256UL * 1024;

    char* place(std::size_t size) {
        if (blocks_.empty() || used_ + size > capacity_) {
            // Small results, by far the most, take no more than they need.
            capacity_ = std::max(size, blocks_.empty() ? std::size_t{1024} : std::min(blockSize, capacity_ * 2));
            blocks_.push_back(std::make_unique_for_overwrite<char[]>(capacity_));
            used_ = 0;
        }
        char* const found = blocks_.back().get() + used_;
        used_ += size;
        return found;
    }

    QStringList names_;
    std::string packed_;
    std::vector<std::unique_ptr<char[]>> blocks_;
    std::size_t capacity_ = 0;
    std::size_t used_ = 0;
    std::vector<char*> rows_;
    std::map<std::pair<int, int>, Value> overwritten_;
    /// Where the last value was read: columns are mostly asked in their order.
    int readRow_ = -1;
    int readColumn_ = 0;
    const char* reading_ = nullptr;
};

namespace {

template <typename Arena>
Arena& opened(const std::unique_ptr<Arena>& arena) {
    if (!arena)
        throw RuntimeError(errorNumber::ObjectClosed);
    return *arena;
}

template <typename Arena>
int column(const Arena& arena, QStringView name) {
    const int index = arena.indexOf(name);
    if (index < 0)
        throw RuntimeError(errorNumber::NoSuchColumn);
    return index;
}

template <typename Arena>
void needRow(const Arena& arena, int row) {
    if (row >= arena.rowCount())
        throw RuntimeError(errorNumber::NoCurrentRow);
}

} // namespace

Recordset::Recordset() = default;
Recordset::~Recordset() = default;
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;

void Recordset::Open(const Statement& statement, Connection& connection) {
    auto arena = std::make_unique<Arena>();
    connection.query(statement, *arena);
    arena_ = std::move(arena);
    row_ = 0;
}

bool Recordset::Eof() const {
    return row_ >= opened(arena_).rowCount();
}

void Recordset::MoveNext() {
    needRow(opened(arena_), row_);
    ++row_;
}

int Recordset::RecordCount() const {
    return opened(arena_).rowCount();
}

Value Recordset::Fields(QStringView name) const {
    Arena& arena = opened(arena_);
    const int index = column(arena, name);
    needRow(arena, row_);
    return arena.at(row_, index);
}

Value Recordset::Fields(int index) const {
    Arena& arena = opened(arena_);
    if (index < 0 || index >= arena.names().size())
        throw RuntimeError(errorNumber::NoSuchColumn);
    needRow(arena, row_);
    return arena.at(row_, index);
}

void Recordset::Overwrite(QStringView name, const Value& value) {
    Arena& arena = opened(arena_);
    const int index = column(arena, name);
    needRow(arena, row_);
    arena.overwrite(row_, index, value);
}

void Recordset::Close() {
    opened(arena_);
    arena_.reset();
    row_ = 0;
}

} // namespace vorta::data
