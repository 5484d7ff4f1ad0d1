#include "reports/ShowReport.h"

#include "data/Process.h"
#include "platform/Form.h"
#include "platform/HourGlass.h"
#include "platform/Notices.h"
#include "platform/WidgetHelpers.h"
#include "reports/PageRange.h"
#include "reports/PagedPrinter.h"
#include "reports/SpoolRegistry.h"
#include "reports/frmImpxPag.h"
#include "reports/frmPreview.h"

#include <QFileInfo>
#include <QPagedPaintDevice>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kErrorAlImprimir = u"Error al Imprimir"_s;

void Abre(QDialog& ventana, QWidget* padre) {
    if (auto* forma = qobject_cast<Forma*>(padre))
        forma->AbreModal(ventana);
    else
        EjecutaSobre(*padre, ventana);
}

} // namespace

EntornoInformes EntornoDeInformes(const Proceso& proceso, Avisos& avisos) {
    return {proceso.rutaRPT, proceso.sysUser, proceso.reloj, avisos};
}

QString ReportePedido::Titulo() const {
    return titulo.isEmpty() ? u"Reporte "_s + QFileInfo(archivo).completeBaseName() : titulo;
}

void VerReporte(const EntornoInformes& entorno, const ReportePedido& pedido, ModoReporte modo, QWidget* padre) {
    if (modo == ModoReporte::Impresora) {
        ImprimeReporte(entorno, pedido);
        return;
    }
    frmPreview vista(entorno, pedido, padre);
    Abre(vista, padre);
}

/// A file that is missing or can't be read counts as a short one: the preview is who tells it.
void MuestraReporte(const EntornoInformes& entorno, const ReportePedido& pedido, QWidget* padre) {
    const QString ruta = RutaDeInforme(entorno.rutaRPT, pedido.archivo);
    const int hojas = NumeroDeHojasDe(ruta).value_or(0);
    if (ViaPara(hojas) == ViaInforme::Directa) {
        VerReporte(entorno, {pedido.archivo, pedido.titulo, {}}, ModoReporte::Vprevia, padre);
        return;
    }
    frmImpxPag dialogo(entorno, pedido, {hojas, TituloPaginas(hojas)}, padre);
    Abre(dialogo, padre);
}

void ImprimeReporte(const EntornoInformes& entorno, const ReportePedido& pedido) {
    const QString ruta = RutaDeInforme(entorno.rutaRPT, pedido.archivo);
    if (const Veredicto veredicto = ValidaArchivoInforme(ruta); !veredicto) {
        entorno.avisos.Muestra(*veredicto.mensaje);
        return;
    }
    const RelojDeArena reloj;
    const std::unique_ptr<InformeSpool> informe = InformeSpool::Abre(ruta);
    if (!pedido.rango.Alcanza(informe->Paginas()))
        return; // nothing to print: not even an empty sheet
    const std::unique_ptr<QPagedPaintDevice> impresora = entorno.impresora(pedido.Titulo());
    if (!impresora) {
        entorno.avisos.Muestra({Icono::Critico, u"No hay ninguna impresora instalada."_s, kErrorAlImprimir});
        return;
    }
    ImpresoraPaginas hojas(*impresora);
    informe->Imprime(pedido.rango, hojas);
    hojas.Termina();
}

} // namespace xa518
