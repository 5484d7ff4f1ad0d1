#include "app/ModuleForms.h"

#include "declaration/Frm518.h"
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

/// What every form of the module is given.
struct Modulo {
    Proceso& proceso;
    Avisos& avisos;
    DialogosDeArchivo& archivos;
};

/// The client dialog over the declaration form, on the row of its grid.
void AbreCliente(const Modulo& modulo, Forma& sobre, const ClaveDeclaracion& clave,
                 const std::optional<FilaCliente>& cliente) {
    RelojDeArena reloj;
    const EntornoDetalle entorno{.base = *modulo.proceso.baseDatos,
                                 .avisos = modulo.avisos,
                                 .reloj = modulo.proceso.reloj,
                                 .declarante = clave.ruc,
                                 .declarado = clave.periodo,
                                 .primerIgv = modulo.proceso.fechaPrimerIgv};
    const ModoDetalle sobreUno = clave.enviada ? ModoDetalle::Ver : ModoDetalle::Modificar;
    FrmAgePer dialogo(entorno, cliente ? sobreUno : ModoDetalle::Nuevo, cliente.value_or(FilaCliente()), &sobre);
    reloj.Suelta();
    sobre.AbreModal(dialogo);
}

/// The report of refused lines is built in any case and shown when it is wanted.
void ReportaErrores(const Modulo& modulo, const DatosErrores& datos, bool muestra, QWidget& sobre) {
    RelojDeArena reloj;
    const QString archivo = EscribeInforme(modulo.proceso, datos);
    reloj.Suelta();
    if (muestra)
        VerReporte(EntornoDeInformes(modulo.proceso, modulo.avisos, modulo.archivos), {archivo, {}, {}},
                   ModoReporte::Vprevia, &sobre);
}

/// The import over the declaration form.
void AbreImportacion(const Modulo& modulo, Forma& sobre, const ImportacionPedida& pedida) {
    const auto reporte = [&](Forma& dialogo, const QString& rutaErr, bool muestra) {
        ReportaErrores(modulo, {rutaErr, pedida.clave.ruc, pedida.nombre, pedida.clave.periodo}, muestra, dialogo);
    };
    frmTransferencia dialogo(
        modulo.proceso, modulo.avisos, pedida.clave,
        {.perfil = PerfilCompartido(), .archivos = modulo.archivos, .reporte = reporte, .refresca = pedida.refresca},
        &sobre);
    sobre.AbreModal(dialogo);
}

DialogosDeDetalle FormasDelDetalle(const Modulo& modulo) {
    DialogosDeDetalle detalle;
    detalle.abreCliente = [modulo](Forma& sobre, const ClaveDeclaracion& clave,
                                   const std::optional<FilaCliente>& cliente) {
        AbreCliente(modulo, sobre, clave, cliente);
    };
    detalle.abreImportacion = [modulo](Forma& sobre, const ImportacionPedida& pedida) {
        AbreImportacion(modulo, sobre, pedida);
    };
    return detalle;
}

} // namespace

Dialogos FormasDelModulo(Proceso& proceso, Avisos& avisos, DialogosDeArchivo& archivos) {
    const Modulo modulo{proceso, avisos, archivos};
    Dialogos dialogos;
    dialogos.declaracion = [modulo](BarradeEstadoQMD& barra, const std::optional<DeclaracionElegida>& elegida,
                                    QWidget* padre) {
        return std::make_unique<Frm518>(modulo.proceso, modulo.avisos, barra, FormasDelDetalle(modulo), elegida, padre);
    };
    dialogos.impresion = [modulo](BarradeEstadoQMD& barra, bool enviadas, QWidget* padre) {
        return std::make_unique<frmImprimir>(
            modulo.proceso, EntornoDeInformes(modulo.proceso, modulo.avisos, modulo.archivos), barra, enviadas, padre);
    };
    return dialogos;
}

} // namespace xa518
