#include "app/LocaleFormats.h"

#include <QLocale>

namespace quellbrook {

HostFormats FormatsOf(const QLocale& locale) {
    HostFormats formats;
    if (locale.language() == QLocale::C) return formats;
    formats.date = locale.dateFormat(QLocale::ShortFormat).toStdString();
    formats.time = locale.timeFormat(QLocale::ShortFormat).toStdString();
    QString currency = locale.toCurrencyString(1.0, QString(), 2);
    const QString amount = locale.toString(1.0, 'f', 2);
    if (currency.contains(amount)) formats.currency = currency.replace(amount, QStringLiteral("%d")).toStdString();
    return formats;
}

}  // namespace quellbrook
