#include "platform/qt/desktop/date_times.h"

#include <QDateTimeEdit>

#include <array>

namespace qt {

namespace {

constexpr std::array<QLatin1String, 6> kParts = {QLatin1String("yyyy"), QLatin1String("MMM"),
                                                 QLatin1String("dd"),   QLatin1String("HH"),
                                                 QLatin1String("mm"),   QLatin1String("ss")};

// The part of a time that a format goes on with; empty for any other letter.
QString PartAt(QStringView format) {
  for (const QLatin1String part : kParts) {
    if (format.startsWith(part)) return part;
  }
  return {};
}

}  // namespace

QString QtTimeFormat(const QString& format) {
  QString result;
  for (qsizetype i = 0; i < format.size();) {
    const QString part = PartAt(QStringView(format).mid(i));
    if (!part.isEmpty()) {
      result += part;
    } else if (format[i].isLetter()) {
      result += u'\'' + format[i] + u'\'';
    } else {
      result += format[i];
    }
    i += part.isEmpty() ? 1 : part.size();
  }
  return result;
}

void ShowDateTime(QDateTimeEdit& picker, const DateTime& time, const QString& format) {
  // A zone would leave out the hour that its summer time leaves out.
  picker.setTimeSpec(Qt::UTC);
  picker.setDisplayFormat(QtTimeFormat(format));
  picker.setDateTime({QDate(time.year, time.month, time.day),
                      QTime(time.hour, time.minute, time.second, time.millisecond), Qt::UTC});
}

DateTime ReadDateTime(const QDateTimeEdit& picker) {
  const QDate date = picker.date();
  const QTime time = picker.time();
  return {date.year(), date.month(), date.day(), time.hour(), time.minute(), time.second(), time.msec()};
}

}  // namespace qt
