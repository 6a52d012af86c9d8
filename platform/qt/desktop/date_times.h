#pragma once

#include <QString>

#include "common/date_time.h"

class QDateTimeEdit;

namespace qt {

/// Shows a time in a format of DialogTimes::SetDateTime. Every time of every zone can stand there.
void ShowDateTime(QDateTimeEdit& picker, const DateTime& time, const QString& format);
DateTime ReadDateTime(const QDateTimeEdit& picker);

/// The same format in Qt's words, where other letters than those of a time's parts mean more, too.
QString QtTimeFormat(const QString& format);

}  // namespace qt
