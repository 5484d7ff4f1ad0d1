#include "declaration/Frm518.h"

#include "ui_Frm518.h"

#include "data/Base.h"
#include "declaration/Consistency.h"
#include "declaration/FrmConsist.h"
#include "declaration/OrderNumber.h"
#include "declaration/Save.h"
#include "declaration/TaxPeriod.h"
#include "family/Process.h"
#include "form518/WorkTables.h"
#include "platform/Clock.h"
#include "platform/Notices.h"
#include "widgets/HourGlass.h"
#include "widgets/StatusBar.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

enum Boton { Nuevo, Modificar, Eliminar, Importar };

} // namespace

/// Any use of a button counts as a change, even when its dialog was cancelled; not when it ended early.
void Frm518::Opcion(int indice) {
    if (AtiendeOpcion(indice))
        m_modificado = true;
}

bool Frm518::AtiendeOpcion(int indice) {
    const ClaveDeclaracion clave = Clave();
    const std::optional<FilaCliente> cliente = m_ui->PaginaPercepcion->Elegido();
    switch (indice) {
    case Modificar:
        if (!cliente)
            return false;
        m_posicionGrid = m_ui->PaginaPercepcion->Fila();
        [[fallthrough]];
    case Nuevo:
        m_proceso.opcionDetalle = QString::number(indice);
        m_proceso.docDeclarante = clave.ruc;
        if (m_dialogos.abreCliente)
            m_dialogos.abreCliente(*this, clave, indice == Nuevo ? std::nullopt : cliente);
        return true;
    case Eliminar: return EliminaCliente();
    case Importar:
        m_proceso.opcionDetalle = QString::number(indice);
        m_proceso.docDeclarante = clave.ruc;
        m_proceso.periodoDeclarado = clave.periodo;
        if (m_dialogos.abreImportacion)
            m_dialogos.abreImportacion(*this,
                                       {clave, m_ui->PaginaIdentificacion->Nombre(), [this] { RefrescaGrilla(); }});
        return true;
    default: return false;
    }
}

bool Frm518::EliminaCliente() {
    const RelojDeArena reloj; // a message box shows the arrow above it
    const std::optional<FilaCliente> cliente = m_ui->PaginaPercepcion->Elegido();
    if (!cliente)
        return false;
    const Mensaje pregunta{Icono::Pregunta, u"¿Confirma que va a eliminar la información?"_s, {}};
    if (m_avisos.Pregunta(pregunta, Respuesta::No) == Respuesta::No)
        return false;
    TablasTrabajo(BaseDatos()).EliminaCliente(cliente->tipDocPer.toInt(), cliente->numDocPer);
    m_modificado = true; // whatever becomes of what follows
    RefrescaGrilla();
    m_ui->PaginaPercepcion->PonPrimeraFila();
    return true;
}

void Frm518::Valida() {
    RelojDeArena reloj;
    if (!IdentificacionVale())
        return;
    LeePaginas();
    if (const std::optional<Mensaje> aviso = AvisoDeImporte(m_declaracion))
        m_avisos.Muestra(*aviso);
    const QStringList lineas = Inconsistencias(m_declaracion);
    m_proceso.hayInconsistencia = lineas.isEmpty() ? 0 : 1;
    m_proceso.rutaMens = RutaMens(m_proceso.sysPath, m_proceso.numFormulario);
    EscribeMens(m_proceso.rutaMens, lineas);
    reloj.Suelta();
    if (lineas.isEmpty()) {
        m_avisos.Muestra(SinInconsistencias());
    } else {
        FrmConsist ventana(m_proceso, this);
        AbreModal(ventana);
    }
    m_ui->PgbCarga->hide();
}

void Frm518::Graba() {
    const RelojDeArena reloj;
    if (!m_proceso.enviadas && !IdentificacionVale())
        return;
    LeePaginas();
    if (const Veredicto largo = RechazaRucDeOcho(m_declaracion.clave.ruc); !largo) {
        m_avisos.Muestra(largo.Motivo());
        return;
    }
    if (m_proceso.enviadas)
        RegistraOrden();
    else
        GrabaTodo();
}

void Frm518::GrabaTodo() {
    RefrescaGrilla(); // the clients are saved as the grid shows them
    const ResultadoGrabacion grabacion = GrabaDeclaracion(BaseDatos(), m_declaracion, m_proceso.reloj.Hoy());
    m_proceso.hayInconsistencia = grabacion.estado == 0 ? 0 : 1;
    if (EsNueva())
        m_ui->PaginaIdentificacion->CongelaClave(); // the declaration exists from here on
    for (const Mensaje& mensaje : grabacion.mensajes)
        m_avisos.Muestra(mensaje);
    m_modificado = false;
}

void Frm518::RegistraOrden() {
    const NumeroDeOrden orden = m_ui->PaginaIdentificacion->Orden(m_proceso.numControl);
    if (!Acata(ValidaNumeroDeOrden(orden, MomentoOrden::Boton)))
        return;
    m_avisos.Muestra(RegistraNumeroDeOrden(BaseDatos(), m_declaracion.clave, orden.numero));
    m_modificado = false;
}

void Frm518::Salir() {
    if (m_modificado && m_proceso.enviadas) {
        const Mensaje pregunta{Icono::Pregunta, u" El número de orden ha cambiado. ¿Desea guardar los cambios?"_s, {}};
        if (m_avisos.Pregunta(pregunta) == Respuesta::Si) {
            const NumeroDeOrden orden = m_ui->PaginaIdentificacion->Orden(m_proceso.numControl);
            if (!Acata(ValidaNumeroDeOrden(orden, MomentoOrden::Cierre)))
                return;
            Graba();
            Termina(); // the status bar keeps its panels on this way out, wanted
            return;
        }
    } else if (m_modificado) {
        const Mensaje pregunta{Icono::Pregunta, u"¿El formulario ha sido modificado, desea guardar los cambios?"_s, {}};
        // The form goes even when the save was refused. Wanted: the question is about leaving.
        if (m_avisos.Pregunta(pregunta) == Respuesta::Si)
            Graba();
    }
    SueltaDatos();
    m_barra.Limpia(m_proceso.numFormulario);
    Termina();
}

/// A base that has gone must not keep the form open.
void Frm518::SueltaDatos() {
    try {
        m_ui->PaginaPercepcion->Suelta(BaseDatos());
    } catch (const ErrorBase&) {
        return;
    }
}

} // namespace xa518
