#pragma once

#include <QDateTime>
#include <QTimeZone>

namespace vorta {

/// A moment as databases hold it: without a time zone, so that no summer time moves it or makes it one that does not
/// exist.
inline QDateTime Moment(QDate date, QTime time = QTime(0, 0)) {
#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
    return QDateTime(date, time, QTimeZone::UTC);
#else
    return QDateTime(date, time, Qt::UTC);
#endif
}

} // namespace vorta
