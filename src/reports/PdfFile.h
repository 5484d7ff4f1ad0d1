#pragma once

#include "reports/PdfSheets.h"
#include "reports/SpoolReport.h"
#include "values/Progress.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

namespace xa518 {

struct MetadatosPdf {
    QString titulo;
    QString autor;
    QDateTime momento;
};

/// Prints spool files, one after the other, to a PDF with searchable text and its fonts inside. It may be called in any
/// thread. Needs a `QGuiApplication`, though no display ("offscreen" serves). The PDF takes its place only when it is
/// whole: stopped by `avance`, as after an error, there is none. Returns its sheets.
/// Raises `Error`: `ArchivoNoEncontrado` for a missing spool file, `AccesoAlDisco` when the PDF can't be written.
int EscribePdf(const QStringList& spools, const QString& rutaPdf, const MetadatosPdf& metadatos,
               const RangoPaginas& rango, Avance& avance);
/// The same with nobody who follows it.
int EscribePdf(const QStringList& spools, const QString& rutaPdf, const MetadatosPdf& metadatos,
               const RangoPaginas& rango = {});

} // namespace xa518
