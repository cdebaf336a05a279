#pragma once

#include "data/Adapter.h"
#include "firebird/Client.h"

#include <array>
#include <optional>
#include <vector>

namespace vorta::firebird {

/// Reads the messages that the engine fetches and hands their values to a row sink.
class RowReader {
  public:
    /// For results of that description, on that connection (which texts kept apart from their row are read through).
    RowReader(Firebird::IAttachment& attachment, Firebird::IMessageMetadata& description);

    const QStringList& names() const { return names_; }
    /// Room for one row, to be fetched into.
    void* message() { return message_.data(); }
    /// Hands over the row that stands in the message.
    void give(Firebird::ITransaction& transaction, data::RowSink& rows);
    /// The integer in the only column of the message; nothing for a null or a value of another type.
    std::optional<qint64> single() const;

  private:
    struct Column {
        unsigned type;
        int subType;
        int scale;
        unsigned length;
        unsigned characterSet;
        unsigned offset;
        unsigned nullOffset;
    };
    void give(const Column& column, Firebird::ITransaction& transaction, data::RowSink& rows);
    void giveBlob(const Column& column, Firebird::ITransaction& transaction, data::RowSink& rows);
    bool isNull(const Column& column) const;
    template <typename Number>
    Number read(const Column& column) const;

    Firebird::IAttachment& attachment_;
    QStringList names_;
    std::vector<Column> columns_;
    std::vector<unsigned char> message_;
};

} // namespace vorta::firebird
