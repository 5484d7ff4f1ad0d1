#include "app/CommandIcons.h"
#include "app/Configuration.h"
#include "app/MDIFrm.h"
#include "app/Startup.h"
#include "data/Process.h"
#include "detail/FrmAgePer.h"
#include "import/frmTransferencia.h"
#include "platform/Application.h"
#include "platform/Clock.h"
#include "platform/HourGlass.h"
#include "platform/NoticeBoxes.h"
#include "platform/SingleInstance.h"
#include "platform/SystemWindows.h"
#include "reports/RunReport.h"
#include "reports/ShowReport.h"
#include "reports/frmImprimir.h"

#include <QFileDialog>

#include <cstdlib>

using namespace xa518;
using namespace Qt::StringLiterals;

namespace {

/// The client dialog over the declaration form, on the row of its grid.
void AbreCliente(Proceso& proceso, Avisos& avisos, Forma& sobre, const ClaveDeclaracion& clave,
                 const std::optional<ClienteElegido>& cliente) {
    RelojDeArena reloj;
    std::optional<FilaCliente> fila;
    if (cliente)
        fila = FilaCliente{cliente->tipDocPer, cliente->numDocPer, cliente->desRazon,
                           cliente->apellidoP, cliente->apellidoM, cliente->nombres};
    FrmAgePer dialogo(proceso, avisos, clave.periodo.mid(4) + u'/' + clave.periodo.left(4), fila, &sobre);
    reloj.Suelta();
    sobre.AbreModal(dialogo);
}

/// The report of refused lines is built in any case and shown when it is wanted.
void ReportaErrores(Proceso& proceso, Avisos& avisos, const DatosErrores& datos, bool muestra, QWidget& sobre) {
    const QString archivo = EscribeInforme(proceso, datos);
    if (muestra)
        VerReporte(EntornoDeInformes(proceso, avisos), {archivo, {}, {}}, ModoReporte::Vprevia, &sobre);
}

/// The import over the declaration form.
void AbreImportacion(Proceso& proceso, Avisos& avisos, Forma& sobre, const ImportacionPedida& pedida) {
    const auto reporte = [&](Forma& dialogo, const QString& rutaErr, bool muestra) {
        ReportaErrores(proceso, avisos, {rutaErr, pedida.clave.ruc, pedida.nombre, pedida.clave.periodo}, muestra,
                       dialogo);
    };
    const auto pideArchivo = [](QWidget& dialogo, const QString& sugerido) {
        return QFileDialog::getSaveFileName(&dialogo, u"Guardar errores"_s, sugerido, u"CSV (*.csv)"_s);
    };
    frmTransferencia dialogo(proceso, avisos, {PerfilCompartido(), reporte, pedida.refresca, pideArchivo}, &sobre);
    sobre.AbreModal(dialogo);
}

/// The one place where the forms of other rooms are put into the commands and into the declaration form.
Dialogos FormasDelModulo(Proceso& proceso, Avisos& avisos) {
    Dialogos dialogos;
    dialogos.declaracion = [&proceso, &avisos](BarradeEstadoQMD& barra, const DeclaracionElegida& elegida,
                                               QWidget* padre) -> std::unique_ptr<QDialog> {
        DialogosDeDetalle detalle;
        detalle.abreCliente = [&proceso, &avisos](Forma& sobre, const ClaveDeclaracion& clave,
                                                  const std::optional<ClienteElegido>& cliente) {
            AbreCliente(proceso, avisos, sobre, clave, cliente);
        };
        detalle.abreImportacion = [&proceso, &avisos](Forma& sobre, const ImportacionPedida& pedida) {
            AbreImportacion(proceso, avisos, sobre, pedida);
        };
        return std::make_unique<Frm518>(proceso, avisos, barra, detalle, elegida, padre);
    };
    dialogos.impresion = [&proceso, &avisos](BarradeEstadoQMD& barra, QWidget* padre) {
        return HazImprimir(proceso, avisos, barra, padre);
    };
    return dialogos;
}

int Corre(Proceso& proceso, Avisos& avisos) {
    const std::unique_ptr<VentanasDelSistema> ventanas = VentanasReales();
    InstanciaUnica instancia(QCoreApplication::applicationFilePath()); // held until the process ends
    if (!PuedeArrancar(*ventanas, instancia, avisos))
        return EXIT_FAILURE;
    MDIFrm principal(proceso, avisos, PerfilCompartido(), FormasDelModulo(proceso, avisos));
    return principal.Carga() ? QCoreApplication::exec() : EXIT_FAILURE;
}

} // namespace

int main(int argc, char* argv[]) {
    PrefiereX11(); // the launcher's window can't be found otherwise
    AvisosEnPantalla avisos;
    const Aplicacion aplicacion(argc, argv, avisos);
    QGuiApplication::setWindowIcon(IconoDelModulo());
    const RelojSistema reloj;
    Proceso proceso(reloj);
    try {
        return Corre(proceso, avisos);
    } catch (...) {
        AtiendeFallaEnCurso(); // a start that fails past the opening of the base: there is nothing to go on with
        return EXIT_FAILURE;
    }
}
