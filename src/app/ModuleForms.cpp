#include "app/ModuleForms.h"

#include "detail/FrmAgePer.h"
#include "family/Configuration.h"
#include "family/Process.h"
#include "import/frmTransferencia.h"
#include "printouts/RunReport.h"
#include "printouts/frmImprimir.h"
#include "reports/ShowReport.h"
#include "widgets/HourGlass.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// The client dialog over the declaration form, on the row of its grid.
void AbreCliente(Proceso& proceso, Avisos& avisos, Forma& sobre, const ClaveDeclaracion& clave,
                 const std::optional<FilaCliente>& cliente) {
    RelojDeArena reloj;
    const EntornoDetalle entorno{.base = *proceso.baseDatos,
                                 .avisos = avisos,
                                 .reloj = proceso.reloj,
                                 .declarante = clave.ruc,
                                 .declarado = clave.periodo,
                                 .primerIgv = proceso.fechaPrimerIgv};
    const ModoDetalle sobreUno = clave.enviada ? ModoDetalle::Ver : ModoDetalle::Modificar;
    FrmAgePer dialogo(entorno, cliente ? sobreUno : ModoDetalle::Nuevo, cliente.value_or(FilaCliente()), &sobre);
    reloj.Suelta();
    sobre.AbreModal(dialogo);
}

/// The report of refused lines is built in any case and shown when it is wanted.
void ReportaErrores(Proceso& proceso, const EntornoInformes& entorno, const DatosErrores& datos, bool muestra,
                    QWidget& sobre) {
    RelojDeArena reloj;
    const QString archivo = EscribeInforme(proceso, datos);
    reloj.Suelta();
    if (muestra)
        VerReporte(entorno, {archivo, {}, {}}, ModoReporte::Vprevia, &sobre);
}

/// The import over the declaration form.
void AbreImportacion(Proceso& proceso, Avisos& avisos, DialogosDeArchivo& archivos, Forma& sobre,
                     const ImportacionPedida& pedida) {
    const EntornoInformes informes = EntornoDeInformes(proceso, avisos, archivos);
    const auto reporte = [&](Forma& dialogo, const QString& rutaErr, bool muestra) {
        ReportaErrores(proceso, informes, {rutaErr, pedida.clave.ruc, pedida.nombre, pedida.clave.periodo}, muestra,
                       dialogo);
    };
    frmTransferencia dialogo(
        proceso, avisos, pedida.clave,
        {.perfil = PerfilCompartido(), .archivos = archivos, .reporte = reporte, .refresca = pedida.refresca}, &sobre);
    sobre.AbreModal(dialogo);
}

} // namespace

Dialogos FormasDelModulo(Proceso& proceso, Avisos& avisos, DialogosDeArchivo& archivos) {
    Dialogos dialogos;
    dialogos.declaracion = [&proceso, &avisos, &archivos](BarradeEstadoQMD& barra, const DeclaracionElegida& elegida,
                                                          QWidget* padre) -> std::unique_ptr<QDialog> {
        DialogosDeDetalle detalle;
        detalle.abreCliente = [&proceso, &avisos](Forma& sobre, const ClaveDeclaracion& clave,
                                                  const std::optional<FilaCliente>& cliente) {
            AbreCliente(proceso, avisos, sobre, clave, cliente);
        };
        detalle.abreImportacion = [&proceso, &avisos, &archivos](Forma& sobre, const ImportacionPedida& pedida) {
            AbreImportacion(proceso, avisos, archivos, sobre, pedida);
        };
        return std::make_unique<Frm518>(proceso, avisos, barra, detalle, elegida, padre);
    };
    dialogos.impresion = [&proceso, &avisos, &archivos](BarradeEstadoQMD& barra, QWidget* padre) {
        return std::make_unique<frmImprimir>(proceso, EntornoDeInformes(proceso, avisos, archivos), barra, padre);
    };
    return dialogos;
}

} // namespace xa518
