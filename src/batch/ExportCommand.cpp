#include "batch/ExportCommand.h"

#include "batch/Arguments.h"
#include "batch/CommandKey.h"
#include "batch/ExitCode.h"
#include "batch/PdfOutput.h"
#include "batch/Report.h"
#include "batch/Session.h"
#include "import/Formats.h"
#include "import/ImportFile.h"
#include "values/FileFailure.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include <array>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kClases = 2;

/// A file that appears under its name once all are whole.
struct ArchivoExportado {
    const FormatoImportacion& formato;
    QSaveFile archivo{};
    qint64 lineas = 0;
};

using Archivos = std::array<ArchivoExportado, kClases>;

void Nombra(Archivos& archivos, const ClaveDeclaracion& clave, const QDir& carpeta) {
    for (ArchivoExportado& uno : archivos) {
        const QString ruta = carpeta.filePath(NombreDeArchivo(clave, uno.formato));
        if (QFileInfo::exists(ruta))
            throw RechazaCon(u"Ya existe el archivo «%1». Bórrelo, o indique otra carpeta."_s.arg(ruta));
        uno.archivo.setFileName(ruta);
    }
}

void Llena(ArchivoExportado& uno, Exportacion& exportacion) {
    if (!uno.archivo.open(QIODevice::WriteOnly))
        throw FallaDeArchivo(Intento::Escribir, uno.archivo);
    uno.lineas = exportacion.Escribe(uno.formato, uno.archivo);
}

/// A file without lines isn't left.
void Deja(ArchivoExportado& uno, Informe& informe) {
    if (uno.lineas == 0)
        return uno.archivo.cancelWriting();
    if (!uno.archivo.commit())
        throw FallaDeArchivo(Intento::Escribir, uno.archivo);
    informe.archivos.append(uno.archivo.fileName());
}

void CuentaLoQueFalta(Informe& informe) {
    const Exportado& exportado = *informe.exportado;
    if (exportado.lineas > 0 && exportado.sinLugar.isEmpty())
        return;
    informe.codigo = kSalidaIncompleta;
    informe.mensajes.append({Icono::Exclamacion,
                             exportado.sinLugar.isEmpty()
                                 ? u"La declaración no tiene comprobantes que exportar."_s
                                 : u"Filas que no caben en los archivos: %1."_s.arg(exportado.sinLugar.size()),
                             {}});
}

} // namespace

void Exportar(Proceso& proceso, const Argumentos& argumentos, Informe& informe) {
    const ClaveDeclaracion clave = ClaveDe(proceso, argumentos);
    ExigeDeclaracion(*proceso.baseDatos, clave);
    PreparaCarpeta(*argumentos.carpeta);
    Archivos archivos{ArchivoExportado{FormatoPercepciones()}, ArchivoExportado{FormatoVentas()}};
    Nombra(archivos, clave, QDir(*argumentos.carpeta));
    Exportacion exportacion(proceso, clave);
    informe.exportado.emplace();
    for (ArchivoExportado& uno : archivos) {
        Llena(uno, exportacion);
        informe.exportado->lineas += uno.lineas;
    }
    informe.exportado->sinLugar = exportacion.SinLugar();
    for (ArchivoExportado& uno : archivos)
        Deja(uno, informe);
    CuentaLoQueFalta(informe);
}

} // namespace xa518
