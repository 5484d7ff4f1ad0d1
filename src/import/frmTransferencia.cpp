#include "import/frmTransferencia.h"

#include "ui_frmTransferencia.h"

#include "family/Process.h"
#include "form518/WorkTables.h"
#include "import/Formats.h"
#include "import/ImportFile.h"
#include "import/MountedVolumes.h"
#include "import/RunMessages.h"
#include "platform/FileDialogs.h"
#include "platform/Notices.h"
#include "values/FileFailure.h"
#include "widgets/Application.h"
#include "widgets/HourGlass.h"

#include <QDir>
#include <QDragEnterEvent>
#include <QLabel>
#include <QMimeData>
#include <QSaveFile>
#include <QScopeGuard>
#include <QTemporaryFile>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// How often the counters move. A person reads no faster, and each time costs a paint.
constexpr qint64 kRitmoMs = 250;
constexpr int kLleno = 1000;
constexpr int kUnidadNoDisponible = 68;

const QString kSeccion = u"Importar"_s;
const QString kClave = u"Carpeta"_s;

/// What was dropped from the file manager: the first thing that lies on this machine.
QString RutaSoltada(const QMimeData& datos) {
    for (const QUrl& url : datos.urls()) {
        if (url.isLocalFile())
            return url.toLocalFile();
    }
    return {};
}

bool Copia(QIODevice& origen, QSaveFile& destino) {
    constexpr qint64 kTrozo = 65'536;
    while (!origen.atEnd()) {
        const QByteArray bytes = origen.read(kTrozo);
        if (bytes.isEmpty() || destino.write(bytes) != bytes.size())
            return false;
    }
    return true;
}

} // namespace

frmTransferencia::frmTransferencia(Proceso& proceso, Avisos& avisos, ClaveDeclaracion clave, EntornoImportacion entorno,
                                   QWidget* padre)
    : Forma(padre)
    , m_proceso(proceso)
    , m_avisos(avisos)
    , m_clave(std::move(clave))
    , m_entorno(std::move(entorno))
    , m_ui(std::make_unique<Ui::frmTransferencia>()) {
    m_ui->setupUi(this);
    PreparaBarra();
    PonEtiquetasEnReposo();
    PreparaCarpeta();
    Conecta();
    Prepara({m_ui->cmCancelar});
}

frmTransferencia::~frmTransferencia() = default;

/// Only decoration, without a command: it tells which declaration the file is for.
void frmTransferencia::PreparaBarra() {
    auto* cual = new QLabel(u"RUC %1   ·   Período %2"_s.arg(m_clave.ruc.Texto(), m_clave.periodo.EnPantalla()));
    cual->setObjectName(u"LblDeclaracion"_s);
    m_ui->Toolbar1->addWidget(cual);
}

void frmTransferencia::Conecta() {
    connect(m_ui->OptTipo_0, &QRadioButton::toggled, this,
            Protegido([this] { m_ui->Carpeta->PonEsperado(ArchivoEsperado()); }));
    connect(m_ui->Carpeta, &CarpetaDeImportacion::Examinar, this, Protegido([this] { Examinar(); }));
    connect(m_ui->Carpeta, &CarpetaDeImportacion::UnidadNoDisponible, this, Protegido([this] {
                m_avisos.Muestra(Errores_Transferencia(Error(kUnidadNoDisponible, u"La unidad no está disponible."_s)));
            }));
    connect(m_ui->cmdTransferir, &QPushButton::clicked, this, Protegido([this] { Transferir(); }));
    connect(m_ui->cmdProbar, &QPushButton::clicked, this, Protegido([this] { Procesa(true); }));
    connect(m_ui->cmdGuardarErrores, &QPushButton::clicked, this, Protegido([this] { GuardarErrores(); }));
    connect(m_ui->cmCancelar, &QPushButton::clicked, this, Protegido([this] { Salir(); }));
}

void frmTransferencia::PreparaCarpeta() {
    m_ui->Carpeta->PonEsperado(ArchivoEsperado());
    const QString recordada = m_entorno.perfil.Lee(kSeccion, kClave);
    m_ui->Carpeta->PonCarpeta(QDir(recordada).exists() && !recordada.isEmpty() ? recordada : RaizDelPrograma());
}

void frmTransferencia::Examinar() {
    const QString carpeta = m_entorno.archivos.PideCarpeta(u"Examinar"_s, m_ui->Carpeta->Carpeta());
    if (!carpeta.isEmpty())
        m_ui->Carpeta->PonCarpeta(carpeta);
}

QString frmTransferencia::ArchivoEsperado() const {
    return NombreDeArchivo(m_clave, Formato());
}

const FormatoImportacion& frmTransferencia::Formato() const {
    return m_ui->OptTipo_0->isChecked() ? FormatoPercepciones() : FormatoVentas();
}

void frmTransferencia::PonEtiquetasEnReposo() {
    m_ui->lblTransferidos->setText(u"0          Registros Transferidos"_s);
    m_ui->lblRechazados->setText(u"0          Registros Rechazados"_s);
    m_ui->barraAvance->setValue(0);
}

/// In the middle of a run it only tells the run to end: the next line doesn't come, and then the dialog closes.
void frmTransferencia::Salir() {
    m_cancelarRun = true;
    if (m_corriendo)
        return;
    m_enProceso.reset();
    InsisteEnTotales();
    Termina();
}

/// Wanted: every press counts as a run here, also one that stopped at once, so that the second one asks.
void frmTransferencia::Transferir() {
    const Mensaje pregunta{Icono::Pregunta, u"¿Desea procesar el archivo nuevamente?"_s, u"Confirmar"_s};
    if (m_yaProcesado && m_avisos.Pregunta(pregunta, Respuesta::No) == Respuesta::No)
        return;
    m_yaProcesado = true;
    Procesa(false);
}

void frmTransferencia::Procesa(bool prueba) {
    m_cancelarRun = false;
    m_ui->Carpeta->PonDetalle({});
    const ResultadoImportacion resultado = CorreTransferencia(prueba);
    RecuerdaCarpeta();
    if (!prueba)
        RecuerdaTotales(resultado);
    if (m_cancelarRun) { // ends without a word, unless something could not be kept
        CuentaLoPerdido(resultado);
        if (resultado.fin == FinImportacion::Fallida)
            m_avisos.Muestra(*resultado.mensaje);
        InsisteEnTotales();
        return Termina();
    }
    m_archivo = resultado.archivo;
    MuestraFin(resultado);
    if (!prueba)
        RefrescaLoDebajo(resultado);
    Protegido([&] { CuentaElFin(resultado, prueba); })(); // a report that fails leaves the totals to be asked for
    InsisteEnTotales();
}

/// What stands in its way, such as a lock, mustn't keep the end of the run from being told. The form shows its list
/// anew when the dialog closes, and tells what it then meets.
void frmTransferencia::RefrescaLoDebajo(const ResultadoImportacion& resultado) const {
    if (!m_entorno.refresca || !resultado.HuboLineas())
        return;
    try {
        m_entorno.refresca();
    } catch (const Error&) { // NOLINT(bugprone-empty-catch)
    }
}

ResultadoImportacion frmTransferencia::CorreTransferencia(bool prueba) {
    const RelojDeArena reloj;
    PonCorriendo(true);
    const auto fin = qScopeGuard([this] { PonCorriendo(false); });
    m_ritmo.start();
    m_enProceso.reset(); // with a file that an earlier run has left open
    m_enProceso = std::make_unique<Transferencia>(m_proceso, m_clave, Formato(), m_ui->Carpeta->Carpeta(),
                                                  OpcionesImportacion{prueba, NuevaPlanilla()});
    ResultadoImportacion resultado = m_enProceso->Corre(*this);
    if (!m_enProceso->TieneAbierto())
        m_enProceso.reset();
    return resultado;
}

/// Nothing but the way out answers while a run is going, and it only to who means it: the focus stays off it, or the
/// key that has begun the run, held a little too long, would end it.
void frmTransferencia::PonCorriendo(bool corriendo) {
    m_corriendo = corriendo;
    if (corriendo) {
        m_conFoco = focusWidget();
        m_ui->barraAvance->setFocus();
    }
    for (QWidget* control :
         std::initializer_list<QWidget*>{m_ui->OptTipo_0, m_ui->OptTipo_1, m_ui->cmdProbar, m_ui->cmdTransferir})
        control->setEnabled(!corriendo);
    m_ui->Carpeta->Activa(!corriendo);
    m_ui->cmdGuardarErrores->setEnabled(false);
    setAcceptDrops(!corriendo);
    if (!corriendo && m_conFoco && focusWidget() == m_ui->barraAvance)
        m_conFoco->setFocus();
}

bool frmTransferencia::Sigue(const AvanceImportacion& avance) {
    if (m_ritmo.elapsed() >= kRitmoMs) {
        MuestraAvance(avance);
        m_ritmo.restart();
    }
    QCoreApplication::processEvents();
    return !m_cancelarRun;
}

void frmTransferencia::MuestraAvance(const AvanceImportacion& avance) {
    m_ui->lblTransferidos->setText(QString::number(avance.transferidos) + u" Transferidos"_s);
    m_ui->lblRechazados->setText(QString::number(avance.rechazados) + u" Rechazados"_s);
    if (avance.bytesTotal > 0)
        m_ui->barraAvance->setValue(static_cast<int>(avance.bytesLeidos * kLleno / avance.bytesTotal));
}

/// A file that isn't there leaves the counters as they were, and so does one without its final separator; one that is
/// refused for its fields puts them back.
void frmTransferencia::MuestraFin(const ResultadoImportacion& resultado) {
    if (resultado.fin == FinImportacion::Rechazada) {
        const Defecto defecto = resultado.revision.defecto;
        if (defecto == Defecto::Separadores || defecto == Defecto::Utf16)
            PonEtiquetasEnReposo();
        m_ui->Carpeta->PonDetalle(resultado.detalle);
        m_ui->cmdGuardarErrores->setEnabled(m_planilla != nullptr);
        return;
    }
    if (resultado.fin == FinImportacion::Fallida && !resultado.HuboLineas() && resultado.noConservado.isEmpty())
        return;
    MuestraAvance({resultado.transferidos, resultado.rechazados, 0, 0});
    if (resultado.fin == FinImportacion::Completa)
        m_ui->barraAvance->setValue(kLleno);
    m_ui->cmdGuardarErrores->setEnabled(m_planilla && resultado.rechazados > 0);
}

void frmTransferencia::CuentaLoPerdido(const ResultadoImportacion& resultado) {
    for (const QString& perdido : resultado.noConservado)
        m_avisos.Muestra({Icono::Exclamacion, perdido, {}});
}

void frmTransferencia::CuentaElFin(const ResultadoImportacion& resultado, bool prueba) {
    CuentaLoPerdido(resultado);
    if (resultado.falla)
        AnotaDetalle(*resultado.falla);
    const bool conRechazos = resultado.fin == FinImportacion::Completa && resultado.rechazados > 0;
    if (prueba || !conRechazos)
        return m_avisos.Muestra(*resultado.mensaje);
    const bool muestra = m_avisos.Pregunta(*resultado.mensaje, Respuesta::No) == Respuesta::Si;
    // Wanted: the report is built in both answers, so that the launcher has it for who wants it later.
    if (m_entorno.reporte && !resultado.rutaErr.isEmpty())
        m_entorno.reporte(*this, resultado.rutaErr, muestra);
}

/// A run that gets as far as the totals makes up for those before it; one without lines leaves them as they were.
void frmTransferencia::RecuerdaTotales(const ResultadoImportacion& resultado) {
    if (!resultado.sinTotales || resultado.HuboLineas())
        m_sinTotales = resultado.sinTotales;
}

/// Box 401 comes from the totals: they aren't left behind without a word.
void frmTransferencia::InsisteEnTotales() {
    while (m_sinTotales && m_avisos.Pregunta(PreguntaPorTotales(*m_sinTotales)) == Respuesta::Si) {
        const RelojDeArena reloj;
        try {
            TablasTrabajo(*m_proceso.baseDatos).CalculaTotales();
            m_sinTotales.reset();
        } catch (const Error& error) {
            m_sinTotales = error;
        }
    }
}

/// They go to a file, not to memory: a whole month may be refused. Without room for it the run goes on without.
PlanillaErrores* frmTransferencia::NuevaPlanilla() {
    m_planilla.reset();
    m_errores = std::make_unique<QTemporaryFile>();
    if (!m_errores->open())
        return nullptr;
    m_planilla = std::make_unique<PlanillaErrores>(*m_errores);
    return m_planilla.get();
}

void frmTransferencia::GuardarErrores() {
    if (!m_planilla)
        return;
    const QString nombre = QFileInfo(m_archivo).completeBaseName() + u"-errores.csv"_s;
    const QString ruta = m_entorno.archivos.PideArchivo({.titulo = u"Guardar errores"_s,
                                                         .sugerido = QDir(m_ui->Carpeta->Carpeta()).filePath(nombre),
                                                         .tipo = u"CSV"_s,
                                                         .sufijo = u"csv"_s});
    if (ruta.isEmpty())
        return;
    if (!m_planilla->EstaCompleta())
        throw FallaDeArchivo(Intento::Escribir, *m_errores);
    QSaveFile destino(ruta);
    if (!m_errores->seek(0) || !destino.open(QIODevice::WriteOnly) || !Copia(*m_errores, destino) || !destino.commit())
        throw FallaDeArchivo(Intento::Escribir, destino);
}

/// A comfort: where it can't be written the dialog works all the same.
void frmTransferencia::RecuerdaCarpeta() {
    const QString& carpeta = m_ui->Carpeta->Carpeta();
    if (carpeta.isEmpty() || !QDir(carpeta).exists() || m_entorno.perfil.Lee(kSeccion, kClave) == carpeta)
        return;
    try {
        m_entorno.perfil.Escribe(kSeccion, kClave, carpeta);
    } catch (const Error&) { // NOLINT(bugprone-empty-catch)
    }
}

/// Whoever comes back from the file manager sees what was put there meanwhile.
void frmTransferencia::changeEvent(QEvent* evento) {
    Forma::changeEvent(evento);
    if (evento->type() == QEvent::ActivationChange && isActiveWindow() && !m_corriendo)
        m_ui->Carpeta->ListaArchivos();
}

void frmTransferencia::dragEnterEvent(QDragEnterEvent* evento) {
    if (!RutaSoltada(*evento->mimeData()).isEmpty())
        evento->acceptProposedAction();
}

/// A folder, or the file itself, which also tells its kind.
void frmTransferencia::dropEvent(QDropEvent* evento) {
    const QFileInfo soltado(RutaSoltada(*evento->mimeData()));
    evento->acceptProposedAction();
    const auto esDe = [&](const FormatoImportacion& formato) {
        return SeLlama(soltado.filePath(), NombreDeArchivo(m_clave, formato));
    };
    if (esDe(FormatoVentas()))
        m_ui->OptTipo_1->setChecked(true);
    else if (esDe(FormatoPercepciones()))
        m_ui->OptTipo_0->setChecked(true);
    m_ui->Carpeta->PonCarpeta(soltado.isDir() ? soltado.filePath() : soltado.path());
}

} // namespace xa518
