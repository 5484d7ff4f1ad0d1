#pragma once

#include <QByteArray>

class QFile;

namespace xa518 {

struct MetadatosPdf;

/// Gives a finished PDF its title, author and date, as an addition at its end. Raises `Error` (`AccesoAlDisco`) when
/// the file isn't a PDF as the writer leaves it.
void PonMetadatos(QFile& pdf, const MetadatosPdf& metadatos);

} // namespace xa518
