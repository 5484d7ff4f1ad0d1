#include "batch/PdfOutput.h"

#include "batch/ExitCode.h"
#include "batch/Report.h"
#include "batch/Session.h"
#include "platform/Clock.h"
#include "printouts/RunReport.h"
#include "reports/PdfFile.h"
#include "values/FileFailure.h"

#include <QDir>
#include <QFileInfo>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// By way of spool files, so that the launcher lists what was printed.
InformesEmitidos Emite(Proceso& proceso, const ClaveDeclaracion& clave, bool anexos) {
    InformesEmitidos emitidos = ImprimeDeclaracion(proceso, clave, anexos);
    if (emitidos.rutas.isEmpty())
        throw Rechazo{emitidos.veredicto.Motivo()};
    return emitidos;
}

void Escribe(const Proceso& proceso, const QStringList& spools, const QString& titulo, const QString& rutaPdf,
             Informe& informe) {
    EscribePdf(spools, rutaPdf, {titulo, proceso.sysUser, proceso.reloj.Ahora()});
    informe.archivos.append(rutaPdf);
}

void ExigeCarpeta(const QString& carpeta) {
    if (const QFileInfo datos(carpeta); !datos.isDir() || !datos.isWritable())
        throw FallaDeCarpeta(carpeta);
}

} // namespace

void PreparaCarpeta(const QString& carpeta) {
    QDir().mkpath(carpeta);
    ExigeCarpeta(carpeta);
}

void ImprimeEnPdf(Proceso& proceso, const ClaveDeclaracion& clave, bool anexos, const QString& rutaPdf,
                  Informe& informe) {
    ExigeCarpeta(QFileInfo(rutaPdf).path()); // before any report is registered
    const InformesEmitidos emitidos = Emite(proceso, clave, anexos);
    if (!emitidos.veredicto) {
        informe.codigo = kSalidaIncompleta;
        informe.mensajes.append(emitidos.veredicto.Motivo());
    }
    Escribe(proceso, emitidos.rutas, TituloDe(clave, false), rutaPdf, informe);
}

void DejaPdf(Proceso& proceso, const ClaveDeclaracion& clave, const QString& carpeta, Informe& informe) {
    const InformesEmitidos emitidos = Emite(proceso, clave, true);
    const QString nombre = QDir(carpeta).filePath(clave.formulario + clave.ruc.Texto() + clave.periodo.Texto());
    Escribe(proceso, {emitidos.rutas.first()}, TituloDe(clave, false), nombre + u".pdf"_s, informe);
    if (emitidos.veredicto)
        Escribe(proceso, {emitidos.rutas.last()}, TituloDe(clave, true), nombre + u"-anexo.pdf"_s, informe);
}

} // namespace xa518
