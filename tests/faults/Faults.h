#pragma once

#include "kit/Installed.h"
#include "office/Colleague.h"

#include <QSet>
#include <QString>
#include <set>

/// What the fault tests share: counts, and the look at a base after the fault.
namespace vorta::test {

/// The short count, or with `VORTA_TEST_LONG=1` the long one.
int Times(int inShort, int inLong);

/// Who was told that a person stands in the base: name by key.
using Told = QMap<QString, QString>;

/// Waits for the colleague's "here".
void ExpectHere(Colleague& colleague);
/// Includes a person and notes it among the told; false when the colleague was not told so.
bool Include(Colleague& colleague, const QString& name, quint64 document, Told& told);

/// The base is sound to the engine's full validation, every told person stands in it, and no person stands half. Nobody
/// may have it open.
void ExpectWhole(const Installed& installed, const Told& told);
/// The words of the engine's full validation about a base file; empty for a sound one.
QString ValidationOf(const QString& base, const QString& lockFolder);

} // namespace vorta::test
