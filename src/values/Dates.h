#pragma once

#include <QDate>
#include <QString>
#include <QStringView>
#include <QTime>

#include <optional>

namespace xa518 {

/// The calendar day written `dd/mm/yyyy` in exactly ten characters; nothing for any other text.
[[nodiscard]] std::optional<QDate> LeeFecha(QStringView texto);

[[nodiscard]] bool EsFecha(QStringView texto);

/// A day through one of the masks "dd/mm/yyyy", "yyyymmdd", "yyyy/mm/dd", "yyyymm", whatever the locale.
[[nodiscard]] QString FormatFecha(const QDate& fecha, QStringView mascara);

/// A date text through the same masks; a text that is no date comes back unchanged.
[[nodiscard]] QString FormatFecha(QStringView fecha, QStringView mascara);

/// "hh:mm:ss", twenty-four hours.
[[nodiscard]] QString FormatHora(const QTime& hora);

} // namespace xa518
