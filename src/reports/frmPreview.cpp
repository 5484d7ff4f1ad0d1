#include "reports/frmPreview.h"

#include "ui_frmPreview.h"

#include "platform/Notices.h"
#include "reports/PageRange.h"
#include "reports/PreviewIcons.h"
#include "reports/PrintReport.h"
#include "reports/SpoolRegistry.h"
#include "values/Error.h"
#include "widgets/Application.h"
#include "widgets/LongTask.h"

#include <QKeyEvent>
#include <QShortcut>
#include <QSignalBlocker>
#include <QWheelEvent>
#include <QtDebug>

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

// What an entry of the list of scales holds when it isn't a scale.
constexpr int kAlAncho = -1;
constexpr int kPaginaEntera = -2;
constexpr int kPorcentajes[] = {50, 75, 100, 125, 150, 200, 300};
constexpr int kPasoDeBarra = 40;

} // namespace

frmPreview::frmPreview(EntornoInformes entorno, ReportePedido pedido, QWidget* padre)
    : Forma(padre)
    , m_entorno(std::move(entorno))
    , m_pedido(std::move(pedido))
    , m_ui(std::make_unique<Ui::frmPreview>()) {
    m_ui->setupUi(this);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    LlenaAmpliaciones();
    Conecta();
    ConectaTeclas();
    Prepara({m_ui->tlbPrevia_5});
    PonIconos(*this);
    MuestraLoLeido();
    m_ui->picFondo->setFocus();
    Lee();
}

frmPreview::~frmPreview() = default;

/// An error ends the load and leaves the form as far as it got, without a word: wanted, what was read can be
/// looked at and printed.
void frmPreview::Lee() {
    const QString ruta = RutaDeInforme(m_entorno.rutaRPT, m_pedido.archivo);
    if (const Veredicto veredicto = ValidaArchivoInforme(ruta); !veredicto) {
        m_entorno.avisos.Muestra(veredicto.Motivo());
        return;
    }
    const auto sinPalabras = [](const std::exception_ptr& falla) {
        try {
            std::rethrow_exception(falla);
        } catch (const Error& error) {
            qWarning().noquote() << error.Texto();
        }
    };
    CorreTarea(
        *this, {.titulo = u"Abriendo el reporte"_s, .seDetiene = false, .alFallar = sinPalabras},
        [ruta](Avance& /*avance*/) { return std::shared_ptr(InformeSpool::Abre(ruta)); },
        [this](std::shared_ptr<InformeSpool> informe) {
            m_informe = std::move(informe);
            MuestraLoLeido();
        });
}

void frmPreview::MuestraLoLeido() {
    m_ui->picFondo->PonInforme(m_informe.get());
    m_ui->txtPagina->setMaximum(Ultima() + 1);
    m_ui->lblPaginas->setText(u"de %1"_s.arg(Ultima() + 1));
    m_ui->tlbPrevia_4->setEnabled(m_informe != nullptr);
    m_ui->CmdPdf->setEnabled(m_informe != nullptr);
    m_ui->lblRango->setVisible(m_pedido.rango.usar);
    m_ui->lblRango->setText(TextoRango(m_pedido.rango, Ultima() + 1));
    Mostrar(Direccion::Primera);
    Amplia(); // its sheets may lie
}

void frmPreview::Conecta() {
    connect(m_ui->tlbPrevia_2, &QToolButton::clicked, this, [this] { Mostrar(Direccion::Anterior); });
    connect(m_ui->tlbPrevia_3, &QToolButton::clicked, this, [this] { Mostrar(Direccion::Siguiente); });
    connect(m_ui->tlbPrevia_4, &QToolButton::clicked, this, Protegido([this] { Imprime(); }));
    connect(m_ui->tlbPrevia_5, &QToolButton::clicked, this, [this] { Salir(); });
    connect(m_ui->CmdPdf, &QToolButton::clicked, this, Protegido([this] { GuardaPdf(); }));
    connect(m_ui->CmdAlejar, &QToolButton::clicked, this, [this] { CambiaAmpliacion(-1); });
    connect(m_ui->CmdAcercar, &QToolButton::clicked, this, [this] { CambiaAmpliacion(1); });
    connect(m_ui->cmbAmpliacion, &QComboBox::currentIndexChanged, this, [this] { Amplia(); });
    connect(m_ui->picFondo, &FondoVista::Redimensionado, this, [this] { Amplia(); });
    for (QScrollBar* barra : {m_ui->vsbPic, m_ui->HScroll1}) {
        barra->setSingleStep(kPasoDeBarra);
        connect(barra, &QScrollBar::valueChanged, this, [this] { Desplaza(); });
    }
    connect(m_ui->txtPagina, &QSpinBox::valueChanged, this, [this](int pagina) { VaAPagina(pagina - 1); });
    connect(m_ui->txtPagina, &QSpinBox::editingFinished, this, [this] {
        if (m_ui->txtPagina->hasFocus()) // by Enter; Tab has gone on to the next control, which keeps the focus
            m_ui->picFondo->setFocus();
    });
}

/// Not the buttons' own shortcuts, which press them at leisure: a key held down turns the pages as fast as it comes.
void frmPreview::ConectaTeclas() {
    const auto conecta = [this](const QKeySequence& tecla, auto hace) {
        connect(new QShortcut(tecla, this), &QShortcut::activated, this, hace);
    };
    conecta(Qt::Key_PageUp, [this] { Mostrar(Direccion::Anterior); });
    conecta(Qt::Key_PageDown, [this] { Mostrar(Direccion::Siguiente); });
    conecta(Qt::Key_Home, [this] { Mostrar(Direccion::Primera); });
    conecta(Qt::Key_End, [this] { VaAPagina(Ultima()); });
    conecta(QKeySequence::ZoomIn, [this] { CambiaAmpliacion(1); });
    conecta(QKeySequence::ZoomOut, [this] { CambiaAmpliacion(-1); });
    conecta(QKeySequence::Print, [this] { m_ui->tlbPrevia_4->click(); });
    conecta(QKeySequence::Save, [this] { m_ui->CmdPdf->click(); });
    conecta(Qt::Key_Escape, [this] { Salir(); });
}

void frmPreview::LlenaAmpliaciones() {
    m_ui->cmbAmpliacion->addItem(u"Ancho de página"_s, kAlAncho);
    m_ui->cmbAmpliacion->addItem(u"Página entera"_s, kPaginaEntera);
    for (const int porcentaje : kPorcentajes)
        m_ui->cmbAmpliacion->addItem(u"%1 %"_s.arg(porcentaje), porcentaje);
}

int frmPreview::Ultima() const {
    return m_informe == nullptr ? 0 : m_informe->Paginas() - 1;
}

/// Before the first page and behind the last the view stays as it is.
void frmPreview::Mostrar(Direccion direccion) {
    switch (direccion) {
    case Direccion::Primera: VaAPagina(0); break;
    case Direccion::Anterior: VaAPagina(std::max(m_paginaVista - 1, 0)); break;
    case Direccion::Siguiente: VaAPagina(std::min(m_paginaVista + 1, Ultima())); break;
    }
}

void frmPreview::VaAPagina(int pagina) {
    m_paginaVista = pagina;
    const QSignalBlocker callado(m_ui->txtPagina);
    m_ui->txtPagina->setValue(pagina + 1);
    m_ui->picFondo->PonPagina(pagina);
    m_ui->vsbPic->setValue(0);
}

void frmPreview::Amplia() {
    constexpr qreal kCien = 100;
    const int elegida = m_ui->cmbAmpliacion->currentData().toInt();
    m_ui->picFondo->PonEscala(elegida == kAlAncho        ? m_ui->picFondo->EscalaDeAncho()
                              : elegida == kPaginaEntera ? m_ui->picFondo->EscalaDePagina()
                                                         : elegida / kCien);
    AjustaBarras();
}

/// From a fitted page to the scale that stands next to it.
void frmPreview::CambiaAmpliacion(int pasos) {
    constexpr int kPrimera = 2; // the entries before it fit the page
    const int ultima = m_ui->cmbAmpliacion->count() - 1;
    int indice = m_ui->cmbAmpliacion->currentIndex();
    if (indice < kPrimera) {
        constexpr int kCien = 100;
        const auto ahora = static_cast<int>(m_ui->picFondo->Escala() * kCien);
        const auto* mayor = std::upper_bound(std::begin(kPorcentajes), std::end(kPorcentajes), ahora);
        indice = kPrimera + static_cast<int>(mayor - std::begin(kPorcentajes)) - (pasos > 0 ? 1 : 0);
    }
    m_ui->cmbAmpliacion->setCurrentIndex(std::clamp(indice + pasos, kPrimera, ultima));
}

void frmPreview::AjustaBarras() {
    const QSize pagina = m_ui->picFondo->TamanoPagina();
    const QSize fondo = m_ui->picFondo->size();
    m_ui->vsbPic->setPageStep(fondo.height());
    m_ui->vsbPic->setMaximum(std::max(0, pagina.height() - fondo.height()));
    m_ui->HScroll1->setPageStep(fondo.width());
    m_ui->HScroll1->setMaximum(std::max(0, pagina.width() - fondo.width()));
    Desplaza();
}

void frmPreview::Desplaza() {
    m_ui->picFondo->PonDesplazamiento({-m_ui->HScroll1->value(), -m_ui->vsbPic->value()});
}

void frmPreview::keyPressEvent(QKeyEvent* evento) {
    using enum QAbstractSlider::SliderAction;
    switch (evento->key()) {
    case Qt::Key_Up: return m_ui->vsbPic->triggerAction(SliderSingleStepSub);
    case Qt::Key_Down: return m_ui->vsbPic->triggerAction(SliderSingleStepAdd);
    case Qt::Key_Left: return m_ui->HScroll1->triggerAction(SliderSingleStepSub);
    case Qt::Key_Right: return m_ui->HScroll1->triggerAction(SliderSingleStepAdd);
    default: Forma::keyPressEvent(evento);
    }
}

void frmPreview::wheelEvent(QWheelEvent* evento) {
    if (evento->modifiers().testFlag(Qt::ControlModifier))
        CambiaAmpliacion(evento->angleDelta().y() > 0 ? 1 : -1);
    else
        QCoreApplication::sendEvent(evento->angleDelta().x() != 0 ? m_ui->HScroll1 : m_ui->vsbPic, evento);
}

void frmPreview::Imprime() {
    ImprimeReporte(m_entorno, m_pedido, *this);
}

/// The whole report: the range limits what is printed.
void frmPreview::GuardaPdf() {
    GuardaReporteComoPdf(m_entorno, m_pedido, {}, *this);
}

} // namespace xa518
