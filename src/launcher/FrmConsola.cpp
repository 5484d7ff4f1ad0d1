#include "launcher/FrmConsola.h"

#include "family/HelpWindow.h"
#include "family/SentCopies.h"
#include "family/Startup.h"
#include "family/WorkSeat.h"
#include "launcher/ModuleStart.h"
#include "launcher/PagBitacora.h"
#include "launcher/PagCopias.h"
#include "launcher/PagDeclarantes.h"
#include "launcher/PagEnviadas.h"
#include "launcher/PagPuestos.h"
#include "launcher/PagRegistradas.h"
#include "platform/Notices.h"
#include "platform/WorkThread.h"
#include "ui_FrmConsola.h"
#include "widgets/Application.h"
#include "widgets/FrmTexto.h"
#include "widgets/HourGlass.h"
#include "widgets/ScreenFit.h"
#include "widgets/WidgetHelpers.h"

#include <QDir>
#include <QScreen>
#include <QShortcut>
#include <QStyle>
#include <QTabBar>
#include <QTimer>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kTamano(1000, 560);

} // namespace

FrmConsola::FrmConsola(const EntornoConsola& entorno, Avisos& avisos, QString carpetaPrograma, VistaDeInforme vista,
                       VistasDeCambios cambios)
    : m_ui(std::make_unique<Ui::FrmConsola>())
    , m_avisos(&avisos)
    , m_carpetaPrograma(std::move(carpetaPrograma))
    , m_sesion(entorno)
    , m_ayuda(new Ayuda(avisos, this)) {
    m_ui->setupUi(this);
    setWindowTitle(kTituloIntegrador);
    const int lado = style()->pixelMetric(QStyle::PM_LargeIconSize);
    m_ui->LblIcono->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(lado));
    m_ui->FraAviso->hide();
    EncuentraAyuda(); // its key may come before the first list is read
    PonModulos();
    PonFichas(std::move(vista), std::move(cambios));
    ComoTextoLlano(*this);
    connect(m_ui->CmdActualizar, &QPushButton::clicked, this, Protegido([this] { Recarga(); }));
    connect(m_ui->CmdInstalar, &QPushButton::clicked, this, Protegido([this] { OfreceInstalar(); }));
    auto* actualizar = new QShortcut(QKeySequence::Refresh, this);
    connect(actualizar, &QShortcut::activated, m_ui->CmdActualizar, &QPushButton::click);
    resize(kTamano.boundedTo(SitioEnPantalla(*this)));
}

FrmConsola::~FrmConsola() = default;

/// A button for each form, the first one's in the place that the layout gives.
void FrmConsola::PonModulos() {
    const Formularios& formularios = m_sesion.LosFormularios();
    for (int i = 0; i < formularios.size(); ++i) {
        const Formulario& formulario = formularios[i];
        auto* boton = i == 0 ? m_ui->CmdModulo : new QPushButton(m_ui->Contenido);
        boton->setText(u"Abrir el &módulo %1 %2"_s.arg(formulario.numero, formulario.nombre));
        if (i > 0)
            m_ui->LayOrdenes->insertWidget(i, boton);
        connect(boton, &QPushButton::clicked, this, Protegido([this, &formulario] { AbreModulo(formulario); }));
    }
}

void FrmConsola::PonFichas(VistaDeInforme vista, VistasDeCambios cambios) {
    const EntornoPagina entorno{m_sesion, *m_avisos};
    QTabWidget& fichas = *m_ui->TabFichas;
    const auto agrega = [&](Pagina* pagina, const QString& titulo) {
        fichas.addTab(pagina, titulo);
        connect(pagina, &Pagina::Cambio, this, &FrmConsola::Recarga);
        return pagina;
    };
    auto* enviadas = new PagEnviadas(entorno, &fichas);
    connect(enviadas, &PagEnviadas::Rectifica, this, [this](const ClaveDeclaracion& copia) {
        AbreModulo(FormularioDe(m_sesion.LosFormularios(), copia.formulario), ArgumentosParaRectificar(copia));
    });
    m_paginas = {agrega(new PagDeclarantes(entorno, &fichas), u"&Declarantes"_s),
                 agrega(new PagRegistradas(entorno, std::move(cambios), &fichas), u"&Registradas"_s),
                 agrega(enviadas, u"Enviada&s"_s),
                 agrega(new PagInformes(entorno, std::move(vista), &fichas), u"&Informes"_s),
                 agrega(new PagBitacora(entorno, &fichas), u"&Bitácora"_s)};
    m_puestos = new PagPuestos(entorno, &fichas);
    m_paginas.append(agrega(m_puestos, u"&Puestos"_s));
    fichas.setTabVisible(fichas.indexOf(m_puestos), false); // until a base on a server is open
    m_copias = new PagCopias(entorno, &fichas);
    agrega(m_copias, u"&Copias de respaldo"_s);
    connect(&fichas, &QTabWidget::currentChanged, this, [&fichas] {
        if (!fichas.tabBar()->hasFocus())
            fichas.currentWidget()->setFocus();
    });
    fichas.currentWidget()->setFocus();
    connect(m_copias, &PagCopias::Restaurada, this, Protegido([this] { RevisaBase(); }));
}

/// What may ask something waits until the window is painted: before that the window system hasn't put it in its place,
/// and the question would stand alone. When the window is gone back to, another program may have changed the base.
bool FrmConsola::event(QEvent* evento) {
    if (evento->type() == QEvent::Paint && !std::exchange(m_arrancada, true))
        QTimer::singleShot(0, this, Protegido([this] { Arranca(); }));
    else if (evento->type() == QEvent::WindowActivate && m_arrancada && !HayTrabajo())
        Recarga();
    return QMainWindow::event(evento);
}

/// A work beside this thread may need the base alone; at its end the lists are read anew.
bool FrmConsola::HayTrabajo() const {
    return findChild<QObject*>(HiloDeTrabajo::kEnMarcha) != nullptr;
}

void FrmConsola::Arranca() {
    Recarga();
    if (!m_sesion.HayInstalacion())
        OfreceInstalar();
    else if (!m_falta.isEmpty())
        m_avisos->Muestra({Icono::Critico, m_falta, {}});
    else
        RevisaBase();
    if (const std::optional<Mensaje> aviso = AvisoDeRed(m_sesion.RutaBase()))
        m_avisos->Muestra(*aviso);
    MuestraNovedades();
}

/// Beside the launcher, and not before it: a person may read it later, and the module may open meanwhile.
void FrmConsola::MuestraNovedades() {
    const QString novedades = m_sesion.TomaNovedades();
    if (novedades.isEmpty())
        return;
    auto* ventana = new FrmTexto(u"Novedades"_s, this);
    ventana->setAttribute(Qt::WA_DeleteOnClose);
    ventana->PonTexto(novedades);
    ventana->show();
}

void FrmConsola::OfreceInstalar() {
    const bool primera = !m_sesion.HayInstalacion();
    const QString carpeta = QDir::toNativeSeparators(m_sesion.Carpeta());
    const QString texto =
        primera ? u"Todavía no hay una instalación en este equipo.\n\n¿Desea crear la base de datos y su catálogo en la"
                  " carpeta '%1'?"_s.arg(carpeta)
                : u"¿Desea instalar de nuevo en la carpeta '%1'?\n\nSe conserva lo que haya. Si falta la base se crea"
                  " una vacía: si tiene una copia de respaldo, restáurela en vez de instalar."_s.arg(carpeta);
    if (m_avisos->Pregunta({Icono::Pregunta, texto, {}}, primera ? Respuesta::Si : Respuesta::No) == Respuesta::Si)
        Instala();
}

void FrmConsola::Instala() {
    const QString texto =
        u"¿Desea agregar también la empresa de ejemplo, con archivos para practicar la importación?"_s;
    const bool conEjemplo = m_avisos->Pregunta({Icono::Pregunta, texto, {}}, Respuesta::No) == Respuesta::Si;
    try {
        RelojDeArena reloj;
        (void)m_sesion.Instala(conEjemplo);
        reloj.Suelta();
        Recarga();
        m_avisos->Muestra(
            {Icono::Informacion,
             u"La instalación quedó lista en la carpeta '%1'.%2"_s.arg(
                 QDir::toNativeSeparators(m_sesion.Carpeta()),
                 conEjemplo ? u"\n\nLos archivos para practicar están en su subcarpeta EJEMPLO."_s : QString()),
             {}});
    } catch (const Error& error) {
        m_avisos->Muestra({Icono::Critico, TextoDeFalla(error, m_sesion.RutaBase()), {}});
        Recarga();
    }
}

void FrmConsola::RevisaBase() {
    try {
        const RelojDeArena reloj;
        const QStringList defectos = Respaldos::Defectos(*m_sesion.Abre());
        m_defectos = defectos.isEmpty() ? QString() : u"La base tiene %1."_s.arg(CuentaDefectos(defectos));
    } catch (const Error& error) {
        m_defectos = TextoDeFalla(error, m_sesion.RutaBase());
    }
    Recarga();
    if (!m_defectos.isEmpty())
        m_avisos->Muestra(
            {Icono::Critico,
             u"La revisión de la base encontró daños:\n\n%1\n\nRestaure una de sus copias de respaldo."_s.arg(
                 m_defectos),
             {}});
}

/// Before there is an installation the module could only refuse to start: it is offered here, where it can be had.
void FrmConsola::AbreModulo(const Formulario& formulario, const QStringList& argumentos) {
    if (!m_sesion.HayInstalacion())
        OfreceInstalar();
    if (!m_sesion.HayInstalacion())
        return;
    if (const Veredicto veredicto = IniciaModulo(formulario.modulo, m_carpetaPrograma, argumentos); !veredicto)
        m_avisos->Muestra(veredicto.Motivo());
}

/// The failure stands above the pages and not in a box: a box that closes brings the focus back, which reloads.
void FrmConsola::Recarga() {
    try {
        MuestraContenido();
    } catch (const Error& error) {
        MuestraFalta(error);
    }
    m_ui->LblBase->setText(m_sesion.HayInstalacion()
                               ? u"Usuario: %1     Base: %2"_s.arg(m_sesion.Usuario(), m_sesion.RutaBase())
                               : QString());
    PonSugerencia(*m_ui->LblBase, m_sesion.RutaBase());
    EncuentraAyuda();
}

/// The launcher's own topics come with the help of every form.
void FrmConsola::EncuentraAyuda() {
    const Formulario& primero = m_sesion.LosFormularios().constFirst();
    m_ayuda->PonArchivo(RutaAyuda(QDir::cleanPath(m_sesion.Carpeta()) + u'/', primero));
}

void FrmConsola::MuestraContenido() {
    m_copias->PonSinEscritura({}); // a copy is restored where no base opens, too
    m_copias->Carga();
    const std::unique_ptr<Base> base = m_sesion.Abre();
    const QString motivo = PorQueNoSeEscribe(*base);
    if (!motivo.isEmpty()) {
        m_copias->PonSinEscritura(motivo);
        m_copias->Carga();
    }
    for (Pagina* pagina : m_paginas) {
        pagina->PonSinEscritura(motivo);
        pagina->Carga(*base);
        pagina->setEnabled(true);
    }
    m_ui->TabFichas->setTabVisible(m_ui->TabFichas->indexOf(m_puestos), base->LosPuestos() != nullptr);
    m_falta.clear();
    const bool sana = m_defectos.isEmpty();
    PonAviso(sana ? QString() : u"La base está dañada: restaure una de sus copias de respaldo."_s, false);
}

/// While another program holds the base the pages stay as they were, and what is done on them is refused with its
/// message.
void FrmConsola::MuestraFalta(const Error& error) {
    const bool ocupada = error.Es(NumeroError::BaseBloqueada);
    for (Pagina* pagina : m_paginas)
        pagina->setEnabled(ocupada);
    m_falta = TextoDeFalla(error, m_sesion.RutaBase());
    PonAviso(m_sesion.HayInstalacion() ? m_falta : u"Todavía no hay una instalación en este equipo."_s,
             LoArreglaInstalar(error));
}

void FrmConsola::PonAviso(const QString& texto, bool instalable) {
    m_ui->LblAviso->setText(texto);
    m_ui->CmdInstalar->setVisible(instalable);
    m_ui->FraAviso->setVisible(!texto.isEmpty());
}

} // namespace xa518
