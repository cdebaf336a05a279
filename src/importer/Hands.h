#pragma once

#include "importer/Columns.h"
#include "screen/User.h"

namespace vorta::importer {

/// Fills fields as a user does, and tells why one was not filled: closed, too small, or of another form.
class Hands {
  public:
    explicit Hands(screen::User& user) : user_(user) {}

    /// Goes into the field and puts the text there, in the place of what it holds. Gives the reason for which it does
    /// not hold it; empty when it does. A closed field that shows the text already is right as it is.
    QString fill(screen::Field& field, const QString& text);
    /// The same, key by key, for fields with rules for single keys.
    QString type(screen::Field& field, const QString& text);

  private:
    QString enter(screen::Field& field, const QString& text);

    screen::User& user_;
};

} // namespace vorta::importer
