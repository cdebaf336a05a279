#pragma once

#include "data/Adapter.h"
#include "odbc/Drivers.h"

#include <QStringList>
#include <string>
#include <vector>

namespace vorta::odbc {

enum class ValueKind { Integer, Exact, Float, Date, Moment, Text };

/// Sends the rows of an executed statement to a sink, value by value from the driver's own buffers: by way of Qt's
/// values every text would be turned to UTF-16 and back, which doubles the time of a long list.
class RowReader {
  public:
    /// `statement` is the driver's handle of a statement that has been executed.
    RowReader(void* statement, const DriverForm& driver);

    const QStringList& names() const { return names_; }
    /// Sends all rows; false when the driver fails on the way.
    bool send(data::RowSink& rows);

  private:
    bool sendRow(data::RowSink& rows);
    bool sendInteger(quint16 column, data::RowSink& rows);
    bool sendExact(quint16 column, data::RowSink& rows);
    bool sendFloat(quint16 column, data::RowSink& rows);
    bool sendDate(quint16 column, ValueKind kind, data::RowSink& rows);
    bool sendText(quint16 column, data::RowSink& rows);
    bool readText(quint16 column);
    /// The whole of a value as the driver gives it in letters of a kind; `null` when it is none.
    template <typename Letter>
    bool readLetters(quint16 column, qint16 type, std::basic_string<Letter>& buffer, std::size_t& length, bool& null);

    void* statement_;
    QStringList names_;
    std::vector<ValueKind> kinds_;
    bool utf8_;
    std::string buffer_;
    std::u16string wide_;
    std::string_view text_; ///< of the last `readText`; without data for a null
};

} // namespace vorta::odbc
