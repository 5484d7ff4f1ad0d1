#include "declaration/Frm518.h"

#include "ui_Frm518.h"

#include "data/Base.h"
#include "data/Catalog.h"
#include "declaration/ClientGrid.h"
#include "declaration/StoredBoxes.h"
#include "declaration/TaxPeriod.h"
#include "family/OfferedDeclarants.h"
#include "family/Process.h"
#include "form518/WorkTables.h"
#include "platform/Clock.h"
#include "platform/Notices.h"
#include "values/CheckDigits.h"
#include "values/Text.h"
#include "widgets/Application.h"
#include "widgets/HourGlass.h"
#include "widgets/ReadablePalette.h"
#include "widgets/StatusBar.h"

#include <QScopeGuard>

#include <utility>

// Opening the form, its pages, and what they hand on. What the buttons do stands in Frm518Actions.cpp.

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAyudaEnviada = 1013;
constexpr int kAyudaDeuda = 1014;
constexpr int kAyudaIdentificacion = 1015;
constexpr int kAyudaPercepcion = 1020;

enum Pestania { Identificaciones, Percepciones, Deuda };

int AyudaDe(int pestania) {
    switch (pestania) {
    case Percepciones: return kAyudaPercepcion;
    case Deuda: return kAyudaDeuda;
    default: return kAyudaIdentificacion;
    }
}

bool TomaFoco(const QWidget& control) {
    return control.isEnabled() && control.isVisible() && (control.focusPolicy() & Qt::TabFocus) != 0;
}

} // namespace

Frm518::Frm518(Proceso& proceso, Avisos& avisos, BarradeEstadoQMD& barra, DialogosDeDetalle dialogos,
               DeclaracionElegida elegida, QWidget* padre)
    : Forma(padre)
    , m_proceso(proceso)
    , m_avisos(avisos)
    , m_barra(barra)
    , m_dialogos(std::move(dialogos))
    , m_elegida(std::move(elegida))
    , m_ui(std::make_unique<Ui::Frm518>())
    , m_trabajo(BaseDatos()) {
    m_ui->setupUi(this);
    Prepara({m_ui->CmdCancelar});
    Conecta();
    Carga();
}

Frm518::~Frm518() = default;

bool Frm518::EsNueva() const {
    return m_proceso.opcion == kNueva;
}

Base& Frm518::BaseDatos() const {
    return *m_proceso.baseDatos;
}

void Frm518::Conecta() {
    connect(m_ui->SSTab1, &QTabWidget::currentChanged, this,
            Protegido([this](int nueva) { AlCambiarPestania(nueva); }));
    connect(m_ui->CmdValidar, &QPushButton::clicked, this, Protegido([this] { Valida(); }));
    connect(m_ui->CmdGrabar, &QPushButton::clicked, this, Protegido([this] { Graba(); }));
    connect(m_ui->CmdCancelar, &QPushButton::clicked, this, Protegido([this] { Salir(); }));
    ConectaPaginas();
}

void Frm518::ConectaPaginas() {
    const auto tocado = [this] { m_modificado = true; };
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
    PonContextoAyuda(m_proceso.enviadas ? kAyudaEnviada : kAyudaIdentificacion);
    CargaIdent();
    m_declaracion.clave = Clave();
    m_ui->PaginaIdentificacion->PonRectifica(m_declaracion.rectifica);
    if (m_proceso.enviadas)
        CargaOrdenGuardado();
    TablasTrabajo(BaseDatos()).Reconstruye(m_declaracion.clave);
    MuestraTotalesDeCarga(BaseDatos(), m_declaracion);
    m_ui->PaginaPercepcion->MuestraTotales(m_declaracion);
    if (m_proceso.enviadas)
        DesTodo();
    m_modificado = false;
    m_cargando = false;
}

void Frm518::CargaIdent() {
    PagIdentificacion& pagina = *m_ui->PaginaIdentificacion;
    if (EsNueva())
        pagina.MuestraNueva(DeclarantesOfrecidos(BaseDatos(), m_proceso.numFormulario, m_proceso.sysUser),
                            m_proceso.sysUser);
    else if (m_proceso.enviadas)
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

void Frm518::CargaOrdenGuardado() {
    const ClaveDeclaracion& clave = m_declaracion.clave;
    Registros cabecera = BaseDatos().Lee(u"SELECT * FROM HCAB "_s + clave.Condicion(), clave.Valores());
    if (cabecera.Siguiente())
        m_ui->PaginaIdentificacion->PonOrden(cabecera.Texto(u"norden"));
}

void Frm518::DesTodo() {
    constexpr int kLargoMinimo = 8;
    ComoSoloLectura(*this);
    m_ui->PaginaPercepcion->MuestraEnviada();
    m_ui->PaginaDeuda->MuestraEnviada();
    m_ui->CmdValidar->hide();
    m_ui->CmdGrabar->setText(u"&Registrar Nro. Orden"_s);
    const QString numero = Recorta(m_proceso.numOrden).toString();
    if (numero.size() >= kLargoMinimo)
        m_ui->PaginaIdentificacion->PonDigitos(DigitosOrden(m_proceso.numControl, m_proceso.numOrden));
}

ClaveDeclaracion Frm518::Clave() const {
    const Identificacion identificacion = m_ui->PaginaIdentificacion->Lee();
    return {.ruc = identificacion.ruc,
            .periodo = Periodo::DePantalla(identificacion.mostrado).value_or(Periodo()),
            .formulario = m_proceso.numFormulario,
            .enviada = m_proceso.enviadas,
            .correl = m_proceso.correl};
}

void Frm518::LeePaginas() {
    m_declaracion.clave = Clave();
    m_declaracion.rectifica = m_ui->PaginaIdentificacion->Rectifica();
    m_declaracion.montos = m_ui->PaginaDeuda->LeeMontos();
    m_declaracion.pago = m_ui->PaginaDeuda->LeePago();
}

void Frm518::AlActivar() {
    RefrescaGrilla();
    if (!focusWidget()) // it opens: the first key belongs to the page, not to the tabs above it
        EnfocaPrimerCampo();
    m_ui->PaginaIdentificacion->EnfocaOrden();
}

void Frm518::RefrescaGrilla() {
    m_ui->PaginaPercepcion->Refresca(BaseDatos());
    m_declaracion.montos = m_ui->PaginaDeuda->LeeMontos();
    RefrescaTotales(BaseDatos(), m_declaracion);
    m_ui->PaginaPercepcion->MuestraTotales(m_declaracion);
    m_ui->PaginaDeuda->MuestraMontos(m_declaracion.montos);
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
    return RechazaDuplicada(BaseDatos(), Clave());
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
    if (si && !m_cargando) {
        m_avisos.Muestra({Icono::Exclamacion,
                          u"Recuerde que debe ingresar toda la información declarada anteriormente inclusive la que no "
                          "esta rectificando o sustituyendo."_s,
                          {}});
    }
    m_modificado = true;
}

void Frm518::AlCambiarPestania(int nueva) {
    PonContextoAyuda(AyudaDe(nueva));
    if (m_volviendo)
        return;
    m_ui->PaginaDeuda->DejaCasilla402();
    const bool vale = PestaniaVale(nueva);
    // Entering the detail freezes the key of a new declaration; the page of the debt doesn't.
    if (vale && EsNueva() && nueva == Percepciones)
        m_ui->PaginaIdentificacion->CongelaClave();
    m_ui->PaginaPercepcion->MuestraCuenta(m_declaracion.clientes);
    if (vale)
        EnfocaPrimerCampo();
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
    return nueva == Identificaciones || IdentificacionVale();
}

void Frm518::EnfocaPrimerCampo() {
    const QWidget* pagina = m_ui->SSTab1->currentWidget();
    for (QWidget* control = pagina->nextInFocusChain(); control != pagina; control = control->nextInFocusChain()) {
        if (pagina->isAncestorOf(control) && TomaFoco(*control)) {
            control->setFocus();
            return;
        }
    }
}

} // namespace xa518
