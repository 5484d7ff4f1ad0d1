#pragma once

#include <QString>

namespace xa518 {

/// How a client is called on paper and in the lists: the company's name, or for a person, whose company name is null
/// or blank, surnames and first names.
[[nodiscard]] QString NombreCliente(const QString& razon, const QString& paterno, const QString& materno,
                                    const QString& nombres);

} // namespace xa518
