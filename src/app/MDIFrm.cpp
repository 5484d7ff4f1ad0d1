#include "app/MDIFrm.h"

#include "app/CommandIcons.h"
#include "app/FrmConsultas.h"
#include "app/FrmContAbrir.h"
#include "app/FrmContAbrirE.h"
#include "app/frmAcercade.h"
#include "family/Configuration.h"
#include "family/HelpWindow.h"
#include "family/Process.h"
#include "family/Startup.h"
#include "family/WorkSeat.h"
#include "platform/Notices.h"
#include "widgets/Application.h"
#include "widgets/HourGlass.h"
#include "widgets/ScreenFit.h"
#include "widgets/StatusBar.h"
#include "widgets/WidgetHelpers.h"

#include "ui_MDIFrm.h"

#include <QAction>
#include <QScreen>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kMedida{960, 620};

} // namespace

MDIFrm::MDIFrm(Proceso& proceso, Avisos& avisos, ArchivoPerfil perfil, Dialogos dialogos)
    : m_ui(std::make_unique<Ui::MDIFrm>())
    , m_proceso(&proceso)
    , m_avisos(&avisos)
    , m_perfil(std::move(perfil))
    , m_dialogos(std::move(dialogos))
    , m_ayuda(new Ayuda(avisos, this)) {
    m_ui->setupUi(this);
    ComoTextoLlano(*this);
    PreparaBarra();
    ConectaMenu();
    setMouseTracking(true);
    m_ui->Picture1->setMouseTracking(true);
    for (QWidget* dentro : m_ui->Picture1->findChildren<QWidget*>())
        dentro->setMouseTracking(true);
}

MDIFrm::~MDIFrm() = default;

BarradeEstadoQMD& MDIFrm::Barra() const {
    return *m_ui->BarradeEstadoQMD1;
}

Entorno MDIFrm::ElEntorno() const {
    return {*m_proceso, *m_avisos, Barra(), m_dialogos};
}

/// The window stands before the configuration is read: a base that can't be opened is told above an empty window.
bool MDIFrm::Carga() {
    Coloca();
    show();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    LeerIni(*m_proceso, m_perfil);
    if (!AbreLaBase())
        return false;
    m_ayuda->PonArchivo(RutaAyuda(m_proceso->sysPath, FormularioDe(m_proceso->formularios, m_proceso->numFormulario)));
    Barra().Limpia(m_proceso->numFormulario);
    LeerCatalogoInicial(*m_proceso);
    (void)OcupaPuesto(*m_proceso);
    ImpideEscribir();
    OfreceRetomar();
    if (const std::optional<Mensaje> aviso = AvisoDeRed(m_proceso->rutaBase))
        m_avisos->Muestra(*aviso);
    return true;
}

/// What can't be written can still be opened, shown and printed, as long as there are work tables to open it in.
void MDIFrm::ImpideEscribir() {
    const QString motivo = PorQueNoSeEscribe(*m_proceso->baseDatos);
    if (motivo.isEmpty())
        return;
    QList<QAction*> ordenes{m_ui->mnuNueva,     m_ui->mnuRetomar, m_ui->mnuEliminar,
                            m_ui->mnuEliminarE, m_ui->Toolbar1_1, m_ui->Toolbar1_3};
    if (!m_proceso->baseDatos->Lugar().trabajo)
        ordenes += QList<QAction*>{m_ui->mnuModificar, m_ui->mnuModificarE, m_ui->Toolbar1_2, m_ui->Toolbar1_7};
    for (QAction* orden : ordenes)
        Impide(*orden, motivo);
    m_ui->mnuDeclara->setToolTipsVisible(true);
    m_ui->mnuDeclaraE->setToolTipsVisible(true);
}

/// Whatever stands in its way is told, and the module starts all the same.
void MDIFrm::OfreceRetomar() {
    if (m_dialogos.retoma)
        Protegido([this] { m_dialogos.retoma(Barra(), Apertura(), [] {}); })();
}

void MDIFrm::Coloca() {
    setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowCloseButtonHint);
    setFixedSize(kMedida.boundedTo(SitioEnPantalla(*this)));
    move(screen()->availableGeometry().topLeft());
}

bool MDIFrm::AbreLaBase() {
    try {
        AbrirBase(*m_proceso, m_perfil);
        return true;
    } catch (const Error& falla) {
        AnotaDetalle(falla);
        m_avisos->Muestra(MensajeDeConexion(falla));
        return false;
    }
}

/// Ten positions, three of them separators. They are told apart by their place.
void MDIFrm::PreparaBarra() {
    QToolBar& barra = *m_ui->Toolbar1;
    barra.setContextMenuPolicy(Qt::PreventContextMenu); // its menu would let the bar be put away
    const std::pair<QAction*, Dibujo> dibujos[] = {
        {m_ui->Toolbar1_1, Dibujo::Nueva},    {m_ui->Toolbar1_2, Dibujo::Modificar},
        {m_ui->Toolbar1_3, Dibujo::Eliminar}, {m_ui->Toolbar1_4, Dibujo::Imprimir},
        {m_ui->Toolbar1_5, Dibujo::Salir},    {m_ui->Toolbar1_7, Dibujo::Registrar},
        {m_ui->Toolbar1_10, Dibujo::Ayuda},
    };
    for (const auto& [accion, dibujo] : dibujos)
        accion->setIcon(IconoDe(dibujo));
    connect(&barra, &QToolBar::actionTriggered, this, Protegido([this, &barra](QAction* accion) {
        PulsaBarra(static_cast<BotonBarra>(barra.actions().indexOf(accion) + 1));
    }));
}

void MDIFrm::ConectaMenu() {
    const std::pair<QAction*, void (MDIFrm::*)()> ordenes[] = {
        {m_ui->mnuNueva, &MDIFrm::Nueva},           {m_ui->mnuModificar, &MDIFrm::Modificar},
        {m_ui->mnuEliminar, &MDIFrm::Eliminar},     {m_ui->mnuImprimir, &MDIFrm::Imprimir},
        {m_ui->mnuModificarE, &MDIFrm::ModificarE}, {m_ui->mnuEliminarE, &MDIFrm::EliminarE},
        {m_ui->mnuImprimirE, &MDIFrm::ImprimirE},   {m_ui->mnuBancos, &MDIFrm::Bancos},
        {m_ui->mnuRetomar, &MDIFrm::Retomar},       {m_ui->mnuContenido, &MDIFrm::MostrarHelp},
        {m_ui->mnuAcercade, &MDIFrm::Acercade},
    };
    for (const auto& [accion, orden] : ordenes)
        connect(accion, &QAction::triggered, this, Protegido([this, orden = orden] { (this->*orden)(); }));
    connect(m_ui->mnuSalir, &QAction::triggered, this, [this] { close(); });
}

void MDIFrm::PulsaBarra(BotonBarra boton) {
    switch (boton) {
    case BotonBarra::Nueva: return Nueva();
    case BotonBarra::Modificar: return Modificar();
    case BotonBarra::Eliminar: return Eliminar();
    case BotonBarra::Imprimir: return ImprimirDe(false);
    case BotonBarra::Salir: close(); return;
    case BotonBarra::Registrar: return ModificarE();
    case BotonBarra::Ayuda: return MostrarHelp();
    }
}

void MDIFrm::Abre(const std::function<std::unique_ptr<QDialog>()>& fabrica) {
    RelojDeArena reloj;
    const std::unique_ptr<QDialog> forma = fabrica();
    CentraSobre(*this, *forma);
    reloj.Suelta();
    EjecutaSobre(*this, *forma);
}

void MDIFrm::Nueva() {
    m_enviadas = false;
    if (m_dialogos.declaracion)
        m_dialogos.declaracion(Barra(), Apertura());
}

void MDIFrm::Retomar() {
    if (m_dialogos.retomaApartada)
        m_dialogos.retomaApartada(Barra(), Apertura());
}

AperturaPedida MDIFrm::Apertura() {
    return {.ventana = *this, .padre = this, .elegida = {}, .muestra = [this](QDialog& forma) {
                CentraSobre(*this, forma);
                EjecutaSobre(*this, forma);
            }};
}

/// Where nothing can be written, a new declaration can't be begun either.
void MDIFrm::Rectifica(const ClaveDeclaracion& enviada) {
    if (!m_dialogos.declaracion || !m_ui->mnuNueva->isEnabled())
        return;
    m_enviadas = false;
    m_dialogos.declaracion(
        Barra(),
        {.ventana = *this, .padre = this, .elegida = {}, .rectificada = enviada, .muestra = [this](QDialog& forma) {
             CentraSobre(*this, forma);
             EjecutaSobre(*this, forma);
         }});
}

void MDIFrm::Modificar() {
    AbreRegistradas(OpcionDeLista::Modificar);
}

void MDIFrm::Eliminar() {
    AbreRegistradas(OpcionDeLista::Eliminar);
}

void MDIFrm::AbreRegistradas(OpcionDeLista opcion) {
    m_enviadas = false;
    Abre([this, opcion] { return std::make_unique<FrmContAbrir>(ElEntorno(), opcion, this); });
}

void MDIFrm::ModificarE() {
    AbreEnviadas(OpcionDeLista::Modificar);
}

void MDIFrm::EliminarE() {
    AbreEnviadas(OpcionDeLista::Eliminar);
}

void MDIFrm::AbreEnviadas(OpcionDeLista opcion) {
    m_enviadas = true;
    Abre([this, opcion] { return std::make_unique<FrmContAbrirE>(ElEntorno(), opcion, this); });
}

/// The menu's command goes by what the command before it meant, unlike the toolbar's: wanted. After a print of sent
/// declarations it lists those again.
void MDIFrm::Imprimir() {
    ImprimirDe(m_enviadas);
}

void MDIFrm::ImprimirE() {
    ImprimirDe(true);
}

void MDIFrm::ImprimirDe(bool enviadas) {
    m_enviadas = enviadas;
    if (m_dialogos.impresion)
        Abre([this] { return m_dialogos.impresion(Barra(), m_enviadas, this); });
}

void MDIFrm::Bancos() {
    Abre([this] { return std::make_unique<FrmConsultas>(*m_proceso->baseDatos, u"B", this); });
}

void MDIFrm::MostrarHelp() {
    m_ayuda->MuestraContenido();
}

void MDIFrm::Acercade() {
    Abre([this] { return std::make_unique<frmAcercade>(this); });
}

/// Every way out comes here: both exit commands and the window's own button.
void MDIFrm::closeEvent(QCloseEvent* evento) {
    m_proceso->baseDatos.reset();
    QMainWindow::closeEvent(evento);
}

void MDIFrm::mouseMoveEvent(QMouseEvent* evento) {
    Barra().PonMensaje({});
    QMainWindow::mouseMoveEvent(evento);
}

} // namespace xa518
