#include "reports/ShowReport.h"

#include "family/Process.h"
#include "reports/PageRange.h"
#include "reports/PrintReport.h"
#include "reports/SpoolRegistry.h"
#include "reports/frmImpxPag.h"
#include "reports/frmPreview.h"
#include "widgets/Form.h"
#include "widgets/WidgetHelpers.h"

#include <QFileInfo>

namespace xa518 {

using namespace Qt::StringLiterals;

EntornoInformes EntornoDeInformes(const Proceso& proceso, Avisos& avisos, DialogosDeArchivo& archivos) {
    return {.rutaRPT = proceso.rutaRPT,
            .autor = proceso.sysUser,
            .reloj = proceso.reloj,
            .avisos = avisos,
            .archivos = archivos};
}

QString ReportePedido::Titulo() const {
    return titulo.isEmpty() ? u"Reporte "_s + QFileInfo(archivo).completeBaseName() : titulo;
}

void VerReporte(const EntornoInformes& entorno, const ReportePedido& pedido, ModoReporte modo, QWidget& padre) {
    if (modo == ModoReporte::Impresora) {
        ImprimeReporte(entorno, pedido, padre);
        return;
    }
    frmPreview vista(entorno, pedido, &padre);
    AbreSobre(vista, padre);
}

/// A file that is missing or can't be read counts as a short one: the preview is who tells it.
void MuestraReporte(const EntornoInformes& entorno, const ReportePedido& pedido, QWidget& padre) {
    const QString ruta = RutaDeInforme(entorno.rutaRPT, pedido.archivo);
    const int hojas = NumeroDeHojasDe(ruta).value_or(0);
    if (ViaPara(hojas) == ViaInforme::Directa) {
        VerReporte(entorno, {pedido.archivo, pedido.titulo, {}}, ModoReporte::Vprevia, padre);
        return;
    }
    frmImpxPag dialogo(entorno, pedido, {hojas, TituloPaginas(hojas)}, &padre);
    AbreSobre(dialogo, padre);
}

void AbreSobre(QDialog& forma, QWidget& ventana) {
    if (auto* debajo = qobject_cast<Forma*>(&ventana))
        debajo->AbreModal(forma);
    else
        EjecutaSobre(ventana, forma);
}

} // namespace xa518
