#include "declaration/Frm518.h"

#include "ui_Frm518.h"

#include "data/Base.h"
#include "data/Catalog.h"
#include "declaration/FormPages.h"
#include "declaration/OrderNumber.h"
#include "declaration/Save.h"
#include "declaration/SaveTask.h"
#include "declaration/StoredBoxes.h"
#include "declaration/Validation.h"
#include "family/OfferedDeclarants.h"
#include "family/Process.h"
#include "form518/RowCounts.h"
#include "form518/WorkTables.h"
#include "platform/Clock.h"
#include "platform/Notices.h"
#include "widgets/Application.h"
#include "widgets/HourGlass.h"
#include "widgets/ReadablePalette.h"
#include "widgets/SessionEnd.h"
#include "widgets/StatusBar.h"
#include "widgets/WidgetHelpers.h"

#include <QApplication>
#include <QScopeGuard>

#include <utility>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAyudaEnviada = 1013;

enum Boton { Nuevo, Modificar, Eliminar, Importar, Recuperar };

} // namespace

Frm518::Frm518(EntornoDeclaracion entorno, TablasTomadas tablas, const std::optional<DeclaracionElegida>& elegida,
               QWidget* padre)
    : Forma(padre)
    , m_proceso(entorno.proceso)
    , m_avisos(entorno.avisos)
    , m_barra(entorno.barra)
    , m_dialogos(std::move(entorno.dialogos))
    , m_modo(elegida ? elegida->Modo() : ModoDeclaracion::Nueva)
    , m_elegida(elegida.value_or(DeclaracionElegida()))
    , m_ui(std::make_unique<Ui::Frm518>())
    , m_tablas(std::move(tablas))
    , m_resguardo(
          m_proceso, [this] { return Retrato(); }, !EsFija()) {
    m_ui->setupUi(this);
    m_copia.emplace(m_avisos, ControlesDeCopia{*m_ui->PaginaIdentificacion, *m_ui->PaginaDeuda, *m_ui->CmdCambios});
    Prepara({m_ui->CmdCancelar});
    Conecta();
    const auto tieneAlgoQuePerder = [this] { return m_modificado || QApplication::activeModalWidget() != this; };
    RetieneLaSesion(*this, tieneAlgoQuePerder, u"Hay una declaración abierta: grábela o ciérrela antes."_s);
    Carga();
}

Frm518::~Frm518() = default;

Base& Frm518::BaseDatos() const {
    return *m_proceso.baseDatos;
}

void Frm518::Conecta() {
    connect(m_ui->SSTab1, &QTabWidget::currentChanged, this,
            Protegido([this](int nueva) { AlCambiarPestania(nueva); }));
    connect(m_ui->CmdValidar, &QPushButton::clicked, this, Protegido([this] { Valida(); }));
    connect(m_ui->CmdCambios, &QPushButton::clicked, this, Protegido([this] { QueCambia(); }));
    connect(m_ui->CmdGrabar, &QPushButton::clicked, this, Protegido([this] { Graba(); }));
    connect(m_ui->CmdCancelar, &QPushButton::clicked, this, Protegido([this] { Salir(); }));
    ConectaPaginas();
}

void Frm518::ConectaPaginas() {
    const auto tocado = [this] { Cambia(); };
    PagIdentificacion& identificacion = *m_ui->PaginaIdentificacion;
    connect(&identificacion, &PagIdentificacion::Tocado, this, tocado);
    connect(&identificacion, &PagIdentificacion::RazonCambiada, this, &Frm518::AlCambiarRazon);
    connect(&identificacion, &PagIdentificacion::DeclaranteElegido, this, &Frm518::AlElegirDeclarante);
    connect(&identificacion, &PagIdentificacion::RectificaElegida, this, &Frm518::AlRectificar);
    // A base that fails is told and holds nobody in the field: the way to another page asks it again.
    identificacion.AlDejarPeriodo([this] {
        Salida salida = Salida::Libre;
        Protegido([&] { salida = AlDejarPeriodo(); })();
        return salida;
    });
    connect(m_ui->PaginaPercepcion, &PagPercepcion::Opcion, this, Protegido([this](int indice) { Opcion(indice); }));
    connect(m_ui->PaginaDeuda, &PagDeuda::Tocado, this, tocado);
}

void Frm518::Carga() {
    const RelojDeArena reloj;
    m_ui->PaginaDeuda->PonBancos(BancosOfrecidos(BaseDatos()));
    PonContextoAyuda(EsEnviada() ? kAyudaEnviada : AyudaDe(Identificaciones));
    CargaIdent();
    m_declaracion.clave = Clave();
    m_ui->PaginaIdentificacion->PonRectifica(m_declaracion.rectifica);
    if (EsEnviada())
        LasPaginas().PonOrdenGuardado(BaseDatos(), m_declaracion.clave);
    else
        m_copia->Busca(BaseDatos(), m_declaracion.clave);
    if (m_elegida.retomada)
        Retoma(LoEscrito::DeJson(m_elegida.retomada->escrito).value_or(LoEscrito()));
    MuestraTotalesDeCarga(m_tablas.totales, m_declaracion);
    m_ui->PaginaPercepcion->MuestraTotales(m_declaracion);
    if (EsEnviada())
        DesTodo();
    if (SoloSeMira())
        MuestraParaMirar();
    m_modificado = m_elegida.retomada.has_value();
    m_cargando = false;
}

/// As it stood when the program ended without having saved it.
void Frm518::Retoma(const LoEscrito& escrito) {
    m_volviendo = true; // no page is checked that had been entered already
    LasPaginas().Pon(escrito, m_elegida);
    m_volviendo = false;
    if (EsNueva() && escrito.claveFija && TomaLaClave())
        m_ui->PaginaIdentificacion->CongelaClave();
    LeePaginas();
    AlElegirDeclarante(m_elegida.nombre);
    m_barra.PonPeriodo(m_declaracion.clave.periodo.EnPantalla());
    m_resguardo.Anota();
}

SinGrabar Frm518::Retrato() const {
    return {
        .nueva = EsNueva(), .clave = Clave(), .guardado = m_tablas.guardado, .escrito = LasPaginas().Lee().EnJson()};
}

void Frm518::Cambia() {
    m_modificado = true;
    if (!m_cargando)
        m_resguardo.Anota();
}

void Frm518::CargaIdent() {
    PagIdentificacion& pagina = *m_ui->PaginaIdentificacion;
    if (EsNueva())
        pagina.MuestraNueva(DeclarantesOfrecidos(BaseDatos(), {m_proceso.numFormulario, m_proceso.sysUser}),
                            m_proceso.sysUser);
    else if (EsEnviada())
        pagina.MuestraEnviada(m_elegida);
    else
        pagina.MuestraElegida(m_elegida);
    CargaCasillasDeLaClave();
}

void Frm518::CargaCasillasDeLaClave() {
    LeePaginas();
    if (EsNueva())
        m_declaracion.clave.periodo = Periodo(); // nothing is stored of a new declaration yet
    CargaCasillas(BaseDatos(), m_declaracion);
    m_ui->PaginaDeuda->Muestra(m_declaracion);
}

void Frm518::DesTodo() {
    ComoSoloLectura(*this);
    LasPaginas().ComoEnviadas(m_elegida);
    m_ui->CmdValidar->hide();
    m_ui->CmdGrabar->setText(u"&Registrar Nro. Orden"_s);
}

/// As a sent copy shows, and no button writes.
void Frm518::MuestraParaMirar() {
    ComoSoloLectura(*this);
    LasPaginas().ParaMirar();
    m_ui->CmdValidar->hide();
    Impide(*m_ui->CmdGrabar, m_elegida.soloSeMira);
    setWindowTitle(windowTitle() + u" (sin modificar)"_s);
}

ClaveDeclaracion Frm518::Clave() const {
    if (!EsNueva())
        return m_elegida.clave;
    const Identificacion identificacion = m_ui->PaginaIdentificacion->Lee();
    return {.ruc = identificacion.ruc,
            .periodo = Periodo::DePantalla(identificacion.mostrado).value_or(Periodo()),
            .formulario = m_proceso.numFormulario};
}

PaginasDeDeclaracion Frm518::LasPaginas() const {
    return {*m_ui->SSTab1, *m_ui->PaginaIdentificacion, *m_ui->PaginaPercepcion, *m_ui->PaginaDeuda};
}

void Frm518::LeePaginas() {
    const LoEscrito escrito = LasPaginas().Lee();
    m_declaracion.clave = Clave();
    m_declaracion.rectifica = escrito.rectifica;
    m_declaracion.montos = escrito.montos;
    m_declaracion.pago = escrito.pago;
}

void Frm518::AlActivar() {
    RefrescaGrilla();
    if (!focusWidget()) // it opens: the first key belongs to the page, not to the tabs above it
        LasPaginas().EnfocaPrimerCampo();
    m_ui->PaginaIdentificacion->EnfocaOrden();
}

void Frm518::RefrescaGrilla(std::function<void()> despues) {
    m_ui->PaginaPercepcion->Refresca(BaseDatos());
    LeeTotalesDeGrilla({.titulo = u"Sumando los clientes"_s, .seDetiene = false}, std::move(despues));
}

/// For who has a message of its own to tell: the grid is shown anew once more when that one closes.
void Frm518::RefrescaSinPalabras() {
    m_resguardo.EscribeDetalle();
    m_ui->PaginaPercepcion->Refresca(BaseDatos());
    LeeTotalesDeGrilla({.titulo = {}, .seDetiene = false, .alFallar = [](const std::exception_ptr&) {}}, {});
}

void Frm518::LeeTotalesDeGrilla(TareaPedida pedida, std::function<void()> despues) {
    CorreTarea(
        *this, std::move(pedida),
        [aparte = ProcesoAparte(m_proceso)](Avance& /*avance*/) { return LeeTotales(*aparte.Abre().baseDatos); },
        [this, despues = std::move(despues)](const TotalesDeGrilla& totales) {
            m_declaracion.montos = m_ui->PaginaDeuda->LeeMontos();
            PonTotales(totales, m_declaracion);
            m_ui->PaginaPercepcion->MuestraTotales(m_declaracion);
            m_ui->PaginaDeuda->MuestraMontos(m_declaracion.montos);
            if (despues)
                despues();
        });
}

void Frm518::VuelveAIdentificacion() {
    m_volviendo = true;
    m_ui->SSTab1->setCurrentIndex(Identificaciones);
    m_volviendo = false;
}

/// Without a verdict the period is still to be finished, and the person goes on there.
bool Frm518::Acata(const std::optional<VeredictoDeclaracion>& veredicto) {
    if (veredicto && *veredicto)
        return true;
    VuelveAIdentificacion();
    if (veredicto)
        m_avisos.Muestra(veredicto->Motivo());
    if (const auto campo = veredicto ? veredicto->ElCampo() : CampoDeclaracion::Periodo)
        m_ui->PaginaIdentificacion->Enfoca(*campo);
    return false;
}

bool Frm518::IdentificacionVale() {
    return Acata(ValidaContForm1(BaseDatos(), m_ui->PaginaIdentificacion->Lee(), m_proceso.reloj.Hoy()));
}

/// Any change of the name reads the boxes and checks the period; the load reads the boxes by itself.
void Frm518::AlCambiarRazon() {
    if (m_cargando)
        return;
    CargaCasillasDeLaClave();
    (void)Acata(PeriodoDejado());
}

void Frm518::AlElegirDeclarante(const QString& nombre) {
    m_barra.PonRuc(m_ui->PaginaIdentificacion->Lee().ruc.Texto());
    m_barra.PonNombre(nombre);
}

/// Only the period of a new declaration can change.
std::optional<VeredictoDeclaracion> Frm518::PeriodoDejado() {
    if (!EsNueva())
        return Veredicto::Bien();
    const QString mostrado = m_ui->PaginaIdentificacion->Lee().mostrado;
    std::optional<VeredictoDeclaracion> veredicto = ValidaPeriodo(mostrado, m_proceso.reloj.Hoy());
    if (!veredicto || !*veredicto)
        return veredicto;
    m_barra.PonPeriodo(mostrado);
    VeredictoDeclaracion libre = RechazaDuplicada(BaseDatos(), Clave());
    if (libre)
        OfreceCopia();
    return libre;
}

/// What was sent of the month may stand for what would be typed again. Nothing of it is saved yet.
void Frm518::OfreceCopia() {
    if (m_copia->Ofrece(BaseDatos(), Clave()) && TomaLaClave())
        m_copia->Trae(*this, m_proceso, [this] {
            m_modificado = true;
            RefrescaGrilla();
        });
}

/// A period that is still to be finished lets the focus go, silently.
Salida Frm518::AlDejarPeriodo() {
    const std::optional<VeredictoDeclaracion> veredicto = PeriodoDejado();
    if (veredicto && *veredicto)
        return Salida::Libre;
    VuelveAIdentificacion();
    if (!veredicto)
        return Salida::Libre;
    m_avisos.Muestra(veredicto->Motivo());
    return Salida::Retenida;
}

void Frm518::AlRectificar(bool si) {
    if (si && !m_cargando)
        m_avisos.Muestra(RecordatorioDeRectificar());
    Cambia();
}

void Frm518::AlCambiarPestania(int nueva) {
    PonContextoAyuda(AyudaDe(nueva));
    if (m_modificado)
        m_resguardo.Anota();
    if (m_volviendo)
        return;
    m_ui->PaginaDeuda->DejaCasilla402();
    const bool vale = PestaniaVale(nueva);
    // Entering the detail freezes the key of a new declaration; the page of the debt doesn't.
    if (vale && EsNueva() && nueva == Percepciones && TomaLaClave())
        m_ui->PaginaIdentificacion->CongelaClave();
    m_ui->PaginaPercepcion->MuestraCuenta(m_declaracion.clientes);
    if (vale)
        LasPaginas().EnfocaPrimerCampo();
}

/// A base that fails in the middle of the check counts as a refusal: nobody goes on unchecked.
bool Frm518::PestaniaVale(int nueva) {
    auto siFalla = qScopeGuard([this] { VuelveAIdentificacion(); });
    const bool vale = ClaveVale(nueva);
    siFalla.dismiss();
    return vale;
}

bool Frm518::ClaveVale(int nueva) {
    if (!Acata(ValidaClaveElegida(m_ui->PaginaIdentificacion->Lee())))
        return false;
    return nueva == Identificaciones || SoloSeMira() || IdentificacionVale();
}

bool Frm518::TomaLaClave() {
    try {
        m_tablas.TomaClave(BaseDatos(), Clave());
        return true;
    } catch (const TrabajoAjeno& ajeno) {
        VuelveAIdentificacion();
        m_avisos.Muestra({Icono::Exclamacion, ajeno.Texto(), {}});
        return false;
    }
}

/// Any use of a button counts as a change, even when its dialog was cancelled; not when it ended early.
void Frm518::Opcion(int indice) {
    if (!AtiendeOpcion(indice))
        return;
    m_modificado = true;
    m_resguardo.AnotaDetalle();
}

bool Frm518::AtiendeOpcion(int indice) {
    const ClaveDeclaracion clave = Clave();
    const std::optional<FilaCliente> cliente = m_ui->PaginaPercepcion->Elegido();
    switch (indice) {
    case Modificar:
        if (!cliente)
            return false;
        [[fallthrough]];
    case Nuevo:
        m_resguardo.AnotaDetalle();
        if (m_dialogos.abreCliente)
            m_dialogos.abreCliente(
                *this, {.clave = clave, .cliente = indice == Nuevo ? std::nullopt : cliente, .soloSeMira = EsFija()});
        return true;
    case Eliminar: return EliminaCliente();
    case Recuperar:
        if (EsFija() || !PagPercepcion::RecuperaEliminado(BaseDatos(), m_avisos))
            return false;
        RefrescaGrilla();
        return true;
    case Importar:
        m_resguardo.EscribeDetalle();
        if (m_dialogos.abreImportacion)
            m_dialogos.abreImportacion(*this, {.clave = clave,
                                               .nombre = m_ui->PaginaIdentificacion->Nombre(),
                                               .refresca = [this] { RefrescaSinPalabras(); }});
        return true;
    default: return false;
    }
}

bool Frm518::EliminaCliente() {
    const RelojDeArena reloj; // a message box shows the arrow above it
    if (!m_ui->PaginaPercepcion->EliminaElegido(BaseDatos(), m_avisos))
        return false;
    m_modificado = true; // whatever becomes of what follows
    RefrescaGrilla([this] { m_ui->PaginaPercepcion->PonPrimeraFila(); });
    return true;
}

void Frm518::Valida() {
    RelojDeArena reloj;
    if (!IdentificacionVale())
        return;
    LeePaginas();
    reloj.Suelta();
    MuestraValidacion(*this, m_avisos, m_proceso, m_declaracion);
    m_ui->PgbCarga->hide();
}

void Frm518::QueCambia() {
    LeePaginas();
    if (m_dialogos.abreCambios)
        m_dialogos.abreCambios(*this, m_copia->Pedido(m_declaracion, m_ui->PaginaIdentificacion->Nombre()));
}

void Frm518::Graba(const std::function<void()>& despues) {
    const RelojDeArena reloj;
    const bool vale = EsEnviada() || (IdentificacionVale() && (!EsNueva() || TomaLaClave()));
    if (vale)
        LeePaginas();
    const Veredicto largo = vale ? RechazaRucDeOcho(m_declaracion.clave.ruc) : Veredicto::Bien();
    if (!largo)
        m_avisos.Muestra(largo.Motivo());
    if (vale && largo && !EsEnviada())
        return m_copia->AdmiteGrabar(BaseDatos(), m_declaracion) ? GrabaTodo(despues) : VuelveAIdentificacion();
    if (vale && largo)
        RegistraOrden();
    if (despues)
        despues();
}

/// The clients are saved as the grid shows them.
void Frm518::GrabaTodo(const std::function<void()>& despues) {
    m_resguardo.EscribeYa(); // not in the middle of the save, which it would wait for
    RefrescaGrilla([this, despues] {
        GrabaAparte(*this, m_proceso, m_declaracion, m_tablas.guardado,
                    [this, despues](const ResultadoGrabacion& grabacion) { AlGrabar(grabacion, despues); });
    });
}

void Frm518::AlGrabar(const ResultadoGrabacion& grabacion, const std::function<void()>& despues) {
    if (!grabacion.veredicto) // what was typed stays, even when leaving
        return m_avisos.Muestra(grabacion.veredicto.Motivo());
    if (EsNueva())
        m_ui->PaginaIdentificacion->CongelaClave(); // the declaration exists from here on
    for (const Mensaje& mensaje : grabacion.mensajes)
        m_avisos.Muestra(mensaje);
    m_tablas.guardado = grabacion.guardado;
    m_modificado = false;
    m_resguardo.Quita();
    if (despues)
        despues();
}

void Frm518::RegistraOrden() {
    const NumeroDeOrden orden = m_ui->PaginaIdentificacion->Orden(m_elegida.control);
    if (!Acata(ValidaNumeroDeOrden(orden, MomentoOrden::Boton)))
        return;
    m_avisos.Muestra(RegistraNumeroDeOrden(BaseDatos(), m_declaracion.clave, orden.numero, m_proceso.SuFirma()));
    m_modificado = false;
}

void Frm518::Salir() {
    if (SoloSeMira())
        return Deja();
    if (m_modificado && EsEnviada()) {
        const Mensaje pregunta{Icono::Pregunta, u" El número de orden ha cambiado. ¿Desea guardar los cambios?"_s, {}};
        if (m_avisos.Pregunta(pregunta) == Respuesta::Si) {
            const NumeroDeOrden orden = m_ui->PaginaIdentificacion->Orden(m_elegida.control);
            if (!Acata(ValidaNumeroDeOrden(orden, MomentoOrden::Cierre)))
                return;
            return Graba(
                [this] { Termina(); }); // the status bar keeps its panels: wanted, they tell whose number it was
        }
    } else if (m_modificado) {
        const Mensaje pregunta{Icono::Pregunta, u"¿El formulario ha sido modificado, desea guardar los cambios?"_s, {}};
        const Respuesta respuesta = m_avisos.PreguntaConOtra(pregunta, u"&Cancelar"_s);
        if (respuesta == Respuesta::Otra)
            return;
        // The form goes even when the save was refused. Wanted: the question is about leaving. What was typed is
        // offered again then.
        if (respuesta == Respuesta::Si)
            return Graba([this] { Deja(); });
        m_resguardo.Quita();
    }
    Deja();
}

void Frm518::Deja() {
    if (m_modificado)
        m_resguardo.EscribeYa();
    LasPaginas().Suelta(BaseDatos());
    m_barra.Limpia(m_proceso.numFormulario);
    Termina();
}

} // namespace xa518
