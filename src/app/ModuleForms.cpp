#include "app/ModuleForms.h"

#include "app/UnsavedOffer.h"
#include "declaration/Frm518.h"
#include "detail/FrmAgePer.h"
#include "family/Process.h"
#include "family/WorkSeat.h"
#include "import/frmTransferencia.h"
#include "platform/Notices.h"
#include "platform/ProfileFile.h"
#include "printouts/RunReport.h"
#include "printouts/ShowChanges.h"
#include "printouts/frmImprimir.h"
#include "reports/ShowReport.h"
#include "widgets/Application.h"
#include "widgets/HourGlass.h"
#include "widgets/LongTask.h"

#include <QTimer>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// What every form of the module is given.
struct Modulo {
    Proceso& proceso;
    Avisos& avisos;
    DialogosDeArchivo& archivos;
    ArchivoPerfil perfil;
};

/// The client dialog over the declaration form, on the row of its grid.
void AbreCliente(const Modulo& modulo, Forma& sobre, const ClientePedido& pedido) {
    RelojDeArena reloj;
    const EntornoDetalle entorno{.base = *modulo.proceso.baseDatos,
                                 .avisos = modulo.avisos,
                                 .reloj = modulo.proceso.reloj,
                                 .declarante = pedido.clave.ruc,
                                 .declarado = pedido.clave.periodo,
                                 .primerIgv = modulo.proceso.fechaPrimerIgv};
    const ModoDetalle sobreUno = pedido.soloSeMira ? ModoDetalle::Ver : ModoDetalle::Modificar;
    FrmAgePer dialogo(entorno, pedido.cliente ? sobreUno : ModoDetalle::Nuevo, pedido.cliente.value_or(FilaCliente()),
                      &sobre);
    reloj.Suelta();
    sobre.AbreModal(dialogo);
}

/// The report of refused lines is built in any case and shown when it is wanted.
void ReportaErrores(const Modulo& modulo, const DatosErrores& datos, const ReporteDeErrores& pedido) {
    const auto alFallar = [despues = pedido.despues](const std::exception_ptr& falla) {
        Protegido([&] { std::rethrow_exception(falla); })();
        despues();
    };
    CorreTarea(
        pedido.sobre, {.titulo = u"Preparando el reporte de errores"_s, .seDetiene = false, .alFallar = alFallar},
        [aparte = ProcesoAparte(modulo.proceso), datos](Avance& avance) {
            Proceso proceso = aparte.Abre();
            return EscribeInforme(proceso, datos, avance);
        },
        [modulo, pedido](const QString& archivo) {
            if (pedido.muestra)
                VerReporte(EntornoDeInformes(modulo.proceso, modulo.avisos, modulo.archivos), {archivo, {}, {}},
                           ModoReporte::Vprevia, pedido.sobre);
            pedido.despues();
        });
}

/// The import over the declaration form.
void AbreImportacion(const Modulo& modulo, Forma& sobre, const ImportacionPedida& pedida) {
    const auto reporte = [&](const ReporteDeErrores& pedido) {
        ReportaErrores(modulo, {pedido.rutaErr, pedida.clave.ruc, pedida.nombre, pedida.clave.periodo}, pedido);
    };
    frmTransferencia dialogo(
        modulo.proceso, modulo.avisos, pedida.clave,
        {.perfil = modulo.perfil, .archivos = modulo.archivos, .reporte = reporte, .refresca = pedida.refresca},
        &sobre);
    sobre.AbreModal(dialogo);
}

DialogosDeDetalle FormasDelDetalle(const Modulo& modulo) {
    DialogosDeDetalle detalle;
    detalle.abreCliente = [modulo](Forma& sobre, const ClientePedido& pedido) { AbreCliente(modulo, sobre, pedido); };
    detalle.abreImportacion = [modulo](Forma& sobre, const ImportacionPedida& pedida) {
        AbreImportacion(modulo, sobre, pedida);
    };
    detalle.abreCambios = [modulo](Forma& sobre, const PedidoDeComparacion& pedido) {
        MuestraCambios(sobre, ProcesoAparte(modulo.proceso),
                       EntornoDeInformes(modulo.proceso, modulo.avisos, modulo.archivos), pedido);
    };
    return detalle;
}

void AbreTomada(const Modulo& modulo, BarradeEstadoQMD& barra, const AperturaPedida& pedida) {
    const auto abre = [modulo, &barra, pedida](const TablasTomadas& tablas) {
        if (const auto aviso = tablas.completado ? AvisoDeLoIncompleto(*tablas.completado) : std::nullopt)
            modulo.avisos.Muestra(*aviso);
        RelojDeArena reloj;
        Frm518 forma({modulo.proceso, modulo.avisos, barra, FormasDelDetalle(modulo)}, tablas, pedida.elegida,
                     pedida.padre);
        reloj.Suelta();
        if (pedida.rectificada) // once it shows: it asks
            QTimer::singleShot(0, &forma, Protegido([&forma, pedida] { forma.Rectifica(*pedida.rectificada); }));
        pedida.muestra(forma);
    };
    TomaTablas(pedida.ventana, modulo.proceso, pedida.elegida, abre, pedida.alFallar);
}

/// What another seat has open may be looked at.
void AbreDeclaracion(const Modulo& modulo, BarradeEstadoQMD& barra, AperturaPedida pedida) {
    if (pedida.elegida)
        pedida.elegida->soloSeMira = PorQueNoSeEscribe(*modulo.proceso.baseDatos);
    try {
        AbreTomada(modulo, barra, pedida);
    } catch (const DeclaracionAbierta& abierta) {
        const QString pregunta = abierta.Texto() + u"\n\n¿Desea verla sin modificar?"_s;
        if (modulo.avisos.Pregunta({Icono::Pregunta, pregunta, {}}) == Respuesta::No)
            return;
        pedida.elegida->soloSeMira = abierta.Texto();
        AbreTomada(modulo, barra, pedida);
    }
}

/// The question about a declaration that isn't saved, before anything that would take its detail.
OfertaDeRetomar Oferta(const Modulo& modulo, BarradeEstadoQMD& barra) {
    return {modulo.proceso, modulo.avisos,
            [modulo, &barra](const AperturaPedida& pedida) { AbreTomada(modulo, barra, pedida); }};
}

/// Whatever is opened takes the work tables, whoever's declaration it is.
void AbreTrasPreguntar(const Modulo& modulo, BarradeEstadoQMD& barra, const AperturaPedida& pedida) {
    AperturaPedida cualquiera = pedida;
    cualquiera.elegida.reset();
    Oferta(modulo, barra).Pregunta(cualquiera, [modulo, &barra, pedida] { AbreDeclaracion(modulo, barra, pedida); });
}

} // namespace

Dialogos FormasDelModulo(Proceso& proceso, Avisos& avisos, DialogosDeArchivo& archivos, const ArchivoPerfil& perfil) {
    const Modulo modulo{proceso, avisos, archivos, perfil};
    Dialogos dialogos;
    dialogos.declaracion = [modulo](BarradeEstadoQMD& barra, const AperturaPedida& pedida) {
        AbreTrasPreguntar(modulo, barra, pedida);
    };
    dialogos.retoma = [modulo](BarradeEstadoQMD& barra, const AperturaPedida& pedida,
                               const std::function<void()>& sigue) {
        const OfertaDeRetomar oferta = Oferta(modulo, barra);
        if (!pedida.elegida) // at the start
            oferta.BorraViejas();
        oferta.Pregunta(pedida, sigue);
    };
    dialogos.retomaApartada = [modulo](BarradeEstadoQMD& barra, const AperturaPedida& pedida) {
        Oferta(modulo, barra).OfreceApartadas(pedida);
    };
    dialogos.impresion = [modulo](BarradeEstadoQMD& barra, bool enviadas, QWidget* padre) {
        return std::make_unique<frmImprimir>(
            modulo.proceso, EntornoDeInformes(modulo.proceso, modulo.avisos, modulo.archivos), barra, enviadas, padre);
    };
    return dialogos;
}

} // namespace xa518
