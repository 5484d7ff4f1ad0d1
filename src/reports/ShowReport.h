#pragma once

#include "reports/Printing.h"
#include "reports/SpoolReport.h"

#include <QString>

class QDialog;
class QWidget;

namespace xa518 {

class Avisos;
class DialogosDeArchivo;
class Reloj;
struct Proceso;

/// What the windows of reports work with, whichever program opens them. All it refers to must outlive them.
struct EntornoInformes {
    QString rutaRPT; ///< folder of the spool files, without separator
    QString autor;   ///< of the PDFs that are saved
    const Reloj& reloj;
    Avisos& avisos;
    DialogosDeArchivo& archivos;
    std::shared_ptr<ServicioDeImpresion> impresion = ServicioDelSistema();
};

[[nodiscard]] EntornoInformes EntornoDeInformes(const Proceso& proceso, Avisos& avisos, DialogosDeArchivo& archivos);

/// A report to be shown: its spool file, without folder, and what is printed of it.
struct ReportePedido {
    QString archivo;
    QString titulo;     ///< as a document; empty for the file's name
    RangoPaginas rango; ///< of the print job: the preview shows all pages

    [[nodiscard]] QString Titulo() const;
};

enum class ModoReporte { Vprevia, Impresora };

/// Shows the preview modally over a window, or prints the report without showing anything.
void VerReporte(const EntornoInformes& entorno, const ReportePedido& pedido, ModoReporte modo, QWidget& padre);

/// A finished report on its way to the user: short ones go straight to the preview, those of 16 pages or more by way of
/// the dialog of the page range.
void MuestraReporte(const EntornoInformes& entorno, const ReportePedido& pedido, QWidget& padre);

/// Opens a form modally over a window, which may be no form.
void AbreSobre(QDialog& forma, QWidget& ventana);

} // namespace xa518
