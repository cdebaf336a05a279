#pragma once

#include "data/Adapter.h"

#include <QSqlQuery>
#include <string>
#include <vector>

namespace vorta::odbc {

enum class ValueKind { Integer, Exact, Float, Date, Moment, Text };

/// Sends the rows of an executed query to a sink, value by value from the driver's own buffers: by way of `QVariant`
/// every text would be turned to UTF-16 and back, which doubles the time of a long list.
class RowReader {
  public:
    /// `query` stands on an executed, forward-only result.
    explicit RowReader(const QSqlQuery& query);

    const QStringList& names() const { return names_; }
    /// Sends the row on which the query stands; false when the driver refuses a value.
    bool send(data::RowSink& rows);

  private:
    bool sendInteger(quint16 column, data::RowSink& rows);
    bool sendExact(quint16 column, data::RowSink& rows);
    bool sendFloat(quint16 column, data::RowSink& rows);
    bool sendDate(quint16 column, ValueKind kind, data::RowSink& rows);
    bool sendText(quint16 column, data::RowSink& rows);
    bool readText(quint16 column);

    void* statement_;
    QStringList names_;
    std::vector<ValueKind> kinds_;
    std::string buffer_;
    std::string_view text_; ///< of the last `readText`; without data for a null
};

} // namespace vorta::odbc
