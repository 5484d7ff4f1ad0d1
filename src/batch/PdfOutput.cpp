#include "batch/PdfOutput.h"

#include "batch/ExitCode.h"
#include "batch/Report.h"
#include "batch/Session.h"
#include "platform/Clock.h"
#include "reports/PdfFile.h"
#include "reports/RunReport.h"
#include "reports/SpoolRegistry.h"

#include <QDir>
#include <QFileInfo>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

DatosDeclaracion ExigeDatos(Proceso& proceso, const ClaveDeclaracion& clave) {
    std::optional<DatosDeclaracion> datos = CargarCasillas(*proceso.baseDatos, clave);
    if (!datos)
        throw Rechazo{NoExisteDeclaracion(clave)};
    return *datos;
}

/// By way of spool files, so that the launcher lists what was printed.
void Escribe(Proceso& proceso, const QList<PedidoDeclaracion>& pedidos, const QString& rutaPdf, Informe& informe) {
    QStringList spools;
    for (const PedidoDeclaracion& pedido : pedidos)
        spools.append(RutaDeInforme(proceso.rutaRPT, EscribeInforme(proceso, pedido)));
    EscribePdf(spools, rutaPdf, {TituloDe(pedidos.constFirst()), proceso.sysUser, proceso.reloj.Ahora()});
    informe.archivos.append(rutaPdf);
}

} // namespace

void PreparaCarpeta(const QString& carpeta) {
    if (!QDir().mkpath(carpeta) || !QFileInfo(carpeta).isWritable())
        throw Error(NumeroError::AccesoAlDisco, u"No se puede escribir en la carpeta '%1'."_s.arg(carpeta));
}

void ImprimeEnPdf(Proceso& proceso, const ClaveDeclaracion& clave, bool anexos, const QString& rutaPdf,
                  Informe& informe) {
    const DatosDeclaracion datos = ExigeDatos(proceso, clave);
    QList<PedidoDeclaracion> pedidos{{datos, false}};
    if (const Veredicto veredicto = ValidaAnexos(datos); anexos && !veredicto) {
        informe.codigo = kSalidaObservaciones;
        informe.mensajes.append(*veredicto.mensaje);
    } else if (anexos) {
        pedidos.append({datos, true});
    }
    Escribe(proceso, pedidos, rutaPdf, informe);
}

void DejaPdf(Proceso& proceso, const ClaveDeclaracion& clave, const QString& carpeta, Informe& informe) {
    const DatosDeclaracion datos = ExigeDatos(proceso, clave);
    const QString nombre = QDir(carpeta).filePath(clave.formulario + clave.ruc + clave.periodo);
    Escribe(proceso, {{datos, false}}, nombre + u".pdf"_s, informe);
    if (ValidaAnexos(datos))
        Escribe(proceso, {{datos, true}}, nombre + u"-anexo.pdf"_s, informe);
}

} // namespace xa518
