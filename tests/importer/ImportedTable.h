#pragma once

#include "kit/Installed.h"

#include <QStringList>

namespace vorta::test {

/// What the program said and how it ended.
struct Said {
    int code = -1;
    QString out;
    QString error;
};

/// Runs "pessoas-base importar" on a file of the installation's folder.
Said Import(const Installed& installed, const QString& file, const QStringList& options = {});

/// Persons in a form in which half of one shows: two contacts, a branch, and the roles of a customer and a supplier.
/// The numbers begin with `from`.
QByteArray Persons(int count, int from = 1);

/// The rows of a query on production.
std::vector<QStringList> Rows(const Installed& installed, const QString& query);
qint64 Number(const Installed& installed, const QString& query);
/// Sets a company switch.
void Switch(const Installed& installed, const QString& name, const QString& value);

/// Production holds so many persons, and each of them is whole.
void ExpectWholePersons(const Installed& installed, qint64 count);

} // namespace vorta::test
