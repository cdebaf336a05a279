#pragma once

#include "data/Connection.h"

#include <QHash>
#include <optional>

namespace vorta::audit {

/// The towns of the register's table by their state, whatever accents and marks a name is written with.
class Towns {
  public:
    explicit Towns(data::Connection& connection);

    bool knowsState(const QString& state) const { return states_.contains(state); }
    /// The municipal code; none for a town that the state has not, or has under two codes.
    std::optional<QString> codeOf(const QString& town, const QString& state) const;
    /// "TOWN/ST" of a municipal code; empty for an unknown one.
    QString placeOf(const QString& code) const { return places_.value(code); }

  private:
    QHash<QString, QString> codes_, places_;
    QHash<QString, bool> states_;
};

/// False when a postal code of eight digits lies in none of the state's ranges; true for an unknown state.
bool PostalCodeInState(const QString& digits, const QString& state);

} // namespace vorta::audit
