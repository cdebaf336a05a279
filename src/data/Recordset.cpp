#include "data/Recordset.h"

#include "base/ByteBlocks.h"
#include "base/Moment.h"
#include "base/RuntimeError.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cstring>
#include <future>
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

/// Packs the rows as they come and finds their values again. A row is the number of its bytes and a run of packed
/// values; rows are walked forward only, and what has been walked over is given back block by block.
class Recordset::Arena : public RowSink {
  public:
    explicit Arena(const Reading& reading) : reading_(reading) {}

    std::span<const Piece> wanted() const override { return reading_.columns; }
    void columns(const QStringList& names) override {
        names_ = names;
        if (!reading_.columns.empty())
            keepOnly(reading_.columns);
    }
    void beginRow() override {
        packed_.clear();
        given_ = 0;
    }
    void null() override {
        if (isKept())
            packed_ += static_cast<char>(Null);
    }
    void integer(qint64 value) override {
        if (!isKept())
            return;
        packed_ += static_cast<char>(Integer);
        putNumber(packed_, folded(value));
    }
    void decimal(Decimal value) override {
        if (!isKept())
            return;
        packed_ += static_cast<char>(DecimalNumber);
        putNumber(packed_, static_cast<quint64>(value.scale));
        putNumber(packed_, folded(value.unscaled));
    }
    void text(std::string_view utf8) override {
        if (!isKept())
            return;
        if (utf8.size() <= longestShortText) {
            packed_ += static_cast<char>(ShortText + utf8.size());
        } else {
            packed_ += static_cast<char>(LongText);
            putNumber(packed_, utf8.size());
        }
        packed_ += utf8;
    }
    void date(const QDateTime& value) override {
        if (!isKept())
            return;
        const int time = value.time().msecsSinceStartOfDay();
        packed_ += static_cast<char>(time == 0 ? Date : DateWithTime);
        putNumber(packed_, folded(value.date().toJulianDay()));
        if (time != 0)
            putNumber(packed_, static_cast<quint64>(time));
    }
    void endRow() override {
        length_.clear();
        putNumber(length_, packed_.size());
        char* const place = rows_.add(length_.size() + packed_.size());
        std::memcpy(place, length_.data(), length_.size());
        std::memcpy(place + length_.size(), packed_.data(), packed_.size());
        count_.store(count() + 1, std::memory_order_relaxed);
    }

    /// Stands on the first row.
    void start() {
        reading_ = {};
        packed_ = {};
        if (left() > 0)
            enter(rows_.front().begin());
    }
    int count() const { return count_.load(std::memory_order_relaxed); }
    int left() const { return count() - passed_; }
    void next() {
        ++passed_;
        overwritten_.clear();
        const bool blockIsOver = end_ == rows_.front().end();
        if (blockIsOver)
            rows_.dropFront();
        if (left() > 0)
            enter(blockIsOver ? rows_.front().begin() : end_);
    }

    const QStringList& names() const { return names_; }
    int indexOf(QStringView name) const {
        const auto found = std::find_if(names_.begin(), names_.end(), [name](const QString& column) {
            return column.size() == name.size() && name.compare(column, Qt::CaseInsensitive) == 0;
        });
        return found == names_.end() ? -1 : static_cast<int>(found - names_.begin());
    }

    /// A value of the row that is stood on.
    Value at(int column) {
        if (!overwritten_.empty())
            if (const auto changed = overwritten_.find(column); changed != overwritten_.end())
                return changed->second;
        if (column < readColumn_)
            readFrom(row_);
        for (; readColumn_ < column; ++readColumn_)
            skip(read_);
        const char* at = read_;
        return take(at);
    }
    void overwrite(int column, const Value& value) { overwritten_[column] = value; }

  private:
    /// A result may have more columns than were asked for; these are not there.
    void keepOnly(std::span<const Piece> wanted) {
        std::vector<bool> kept;
        QStringList names;
        for (const QString& name : names_) {
            kept.push_back(std::any_of(wanted.begin(), wanted.end(), [&](const Piece& piece) {
                return name.compare(piece.toString(), Qt::CaseInsensitive) == 0;
            }));
            if (kept.back())
                names += name;
        }
        if (names.size() < names_.size())
            kept_ = std::move(kept);
        names_ = std::move(names);
    }
    /// Asked once for each value of a row, in the order in which they come.
    bool isKept() { return kept_.empty() || kept_[given_++]; }

    void enter(const char* place) {
        const quint64 length = takeNumber(place);
        row_ = place;
        end_ = place + length;
        readFrom(row_);
    }
    void readFrom(const char* place) {
        read_ = place;
        readColumn_ = 0;
    }

    Reading reading_;
    QStringList names_;
    std::vector<bool> kept_; ///< of the columns that come; none when all are kept
    std::size_t given_ = 0;  ///< values of the coming row so far
    std::string packed_;
    std::string length_;
    ByteBlocks rows_;
    std::atomic<int> count_ = 0; ///< also asked while rows come
    int passed_ = 0;
    std::map<int, Value> overwritten_; ///< in the current row
    // The current row, and where the last value was read: columns are mostly asked in their order.
    const char* row_ = nullptr;
    const char* end_ = nullptr;
    const char* read_ = nullptr;
    int readColumn_ = 0;
};

namespace {

/// Does the work on another thread, and calls `meanwhile` on this one from time to time until it is done. A failure of
/// either is raised when the work has come to its end.
void DoAside(const std::function<void()>& work, const std::function<void()>& meanwhile) {
    constexpr std::chrono::milliseconds interval{40};
    std::future<void> done = std::async(std::launch::async, work);
    while (done.wait_for(interval) == std::future_status::timeout)
        meanwhile();
    done.get();
}

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
void needRow(const Arena& arena) {
    if (arena.left() == 0)
        throw RuntimeError(errorNumber::NoCurrentRow);
}

} // namespace

Recordset::Recordset() = default;
Recordset::~Recordset() = default;
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;

void Recordset::Open(const Statement& statement, Connection& connection, const Reading& reading) {
    auto arena = std::make_unique<Arena>(reading);
    const auto read = [&] { connection.query(statement, *arena); };
    if (reading.fetched)
        DoAside(read, [&] { reading.fetched(arena->count()); });
    else
        read();
    arena->start();
    arena_ = std::move(arena);
}

bool Recordset::Eof() const {
    return opened(arena_).left() == 0;
}

void Recordset::MoveNext() {
    Arena& arena = opened(arena_);
    needRow(arena);
    arena.next();
}

int Recordset::RecordCount() const {
    return opened(arena_).count();
}

Value Recordset::Fields(QStringView name) const {
    Arena& arena = opened(arena_);
    const int index = column(arena, name);
    needRow(arena);
    return arena.at(index);
}

Value Recordset::Fields(const char* name) const {
    // Asked for each value of each row: a name of the usual length costs no allocation.
    constexpr std::size_t usualName = 64;
    const std::size_t length = std::strlen(name);
    if (length > usualName)
        return Fields(QString::fromLatin1(name));
    std::array<char16_t, usualName> wide;
    std::copy_n(name, length, wide.begin());
    return Fields(QStringView(wide.data(), static_cast<qsizetype>(length)));
}

Value Recordset::Fields(int index) const {
    Arena& arena = opened(arena_);
    if (index < 0 || index >= arena.names().size())
        throw RuntimeError(errorNumber::NoSuchColumn);
    needRow(arena);
    return arena.at(index);
}

void Recordset::Overwrite(QStringView name, const Value& value) {
    Arena& arena = opened(arena_);
    const int index = column(arena, name);
    needRow(arena);
    arena.overwrite(index, value);
}

void Recordset::Close() {
    opened(arena_);
    arena_.reset();
}

} // namespace vorta::data
