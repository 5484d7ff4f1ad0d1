#include "import/frmTransferencia.h"

#include "ui_frmTransferencia.h"

#include "data/Base.h"
#include "family/Process.h"
#include "form518/WorkRuns.h"
#include "form518/WorkTables.h"
#include "import/Correction.h"
#include "import/Formats.h"
#include "import/FrmCorreccion.h"
#include "import/ImportFile.h"
#include "import/MountedVolumes.h"
#include "import/RunBeside.h"
#include "import/RunMessages.h"
#include "import/UndoImport.h"
#include "import/UndoMessages.h"
#include "platform/FileDialogs.h"
#include "platform/Notices.h"
#include "values/FileFailure.h"
#include "widgets/Application.h"
#include "widgets/LongTask.h"

#include <QDir>
#include <QDragEnterEvent>
#include <QLabel>
#include <QMimeData>
#include <QSaveFile>
#include <QTemporaryFile>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// How often the counters move. A person reads no faster, and each time costs a paint.
constexpr int kRitmoMs = 250;
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
    OfreceDeshacer();
    Conecta();
    Prepara({m_ui->cmCancelar});
}

frmTransferencia::~frmTransferencia() {
    if (m_corriendo)
        m_enProceso->Cancela();
}

/// Only decoration, without a command: it tells which declaration the file is for.
void frmTransferencia::PreparaBarra() {
    auto* cual = new QLabel(u"RUC %1   ·   Período %2"_s.arg(m_clave.ruc.Texto(), m_clave.periodo.EnPantalla()));
    cual->setObjectName(u"LblDeclaracion"_s);
    m_ui->Toolbar1->addWidget(cual);
}

void frmTransferencia::Conecta() {
    connect(&m_ritmo, &QTimer::timeout, this, [this] { MuestraAvance(m_enProceso->Avance()); });
    connect(m_ui->OptTipo_0, &QRadioButton::toggled, this,
            Protegido([this] { m_ui->Carpeta->PonEsperado(ArchivoEsperado()); }));
    connect(m_ui->Carpeta, &CarpetaDeImportacion::Examinar, this, Protegido([this] { Examinar(); }));
    connect(m_ui->Carpeta, &CarpetaDeImportacion::UnidadNoDisponible, this, Protegido([this] {
                m_avisos.Muestra(Errores_Transferencia(Error(kUnidadNoDisponible, u"La unidad no está disponible."_s)));
            }));
    connect(m_ui->cmdTransferir, &QPushButton::clicked, this, Protegido([this] { Transferir(); }));
    connect(m_ui->cmdProbar, &QPushButton::clicked, this, Protegido([this] { Procesa(true); }));
    connect(m_ui->cmdGuardarErrores, &QPushButton::clicked, this, Protegido([this] { GuardarErrores(); }));
    connect(m_ui->cmdCorregir, &QPushButton::clicked, this, Protegido([this] { Corregir(); }));
    connect(m_ui->cmdDeshacer, &QPushButton::clicked, this, Protegido([this] { Deshacer(); }));
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
        return m_enProceso->Cancela();
    m_enProceso.reset();
    InsisteEnTotales([this] { Termina(); });
}

/// Wanted: every press counts as a run here, also one that stopped at once, so that the second one asks.
void frmTransferencia::Transferir() {
    const Mensaje pregunta{Icono::Pregunta, u"¿Desea procesar el archivo nuevamente?"_s, u"Confirmar"_s};
    if (m_yaProcesado && m_avisos.Pregunta(pregunta, Respuesta::No) == Respuesta::No)
        return;
    m_yaProcesado = true;
    PreguntaSiEsRepetida();
}

/// The bytes are only gone through when a file of that length has been imported before. One that isn't there is told of
/// by the run.
void frmTransferencia::PreguntaSiEsRepetida() {
    QString ruta;
    try {
        ruta = BuscaArchivo(m_ui->Carpeta->Carpeta(), ArchivoEsperado());
    } catch (const Error&) {
        return Procesa(false);
    }
    if (!CorridasTrabajo(*m_proceso.baseDatos).HayDeTamanio(QFileInfo(ruta).size()))
        return Procesa(false);
    CorreTarea(
        *this, {.titulo = u"Revisando el archivo"_s},
        [aparte = ProcesoAparte(m_proceso), ruta](Avance& /*avance*/) {
            return CorridasTrabajo(*aparte.Abre().baseDatos).DeHuella(HuellaDeArchivo(ruta));
        },
        [this](const std::optional<CorridaTrabajo>& anterior) { ImportaSiQuiere(anterior); });
}

void frmTransferencia::ImportaSiQuiere(const std::optional<CorridaTrabajo>& anterior) {
    if (!anterior || m_avisos.Pregunta(PreguntaPorRepetida(*anterior), Respuesta::No) == Respuesta::Si)
        Procesa(false);
}

void frmTransferencia::Deshacer() {
    DeshaceUltimaImportacion(*this, m_proceso, m_avisos, [this] {
        m_sinTotales.reset(); // what they lacked is gone
        PonEtiquetasEnReposo();
        m_ui->cmdGuardarErrores->setEnabled(false);
        OfreceDeshacer();
        RefrescaLoDebajo();
    });
}

/// Where the base can't tell, the button has nothing to offer.
void frmTransferencia::OfreceDeshacer() {
    std::optional<CorridaTrabajo> ultima;
    try {
        ultima = CorridasTrabajo(*m_proceso.baseDatos).Ultima();
    } catch (const Error&) { // NOLINT(bugprone-empty-catch)
    }
    m_ui->cmdDeshacer->setEnabled(ultima.has_value());
    m_ui->cmdDeshacer->setToolTip(ultima ? ComoFue(*ultima)
                                         : u"No hay importaciones en esta declaración desde que se abrió"_s);
}

void frmTransferencia::Procesa(bool prueba) {
    m_cancelarRun = false;
    m_ui->Carpeta->PonDetalle({});
    PonCorriendo(true);
    m_enProceso.reset(); // with a file that an earlier run has left open
    m_enProceso = std::make_shared<CorridaAparte>(m_proceso, m_clave);
    m_correccion.reset();
    m_rechazadas = std::make_shared<LineasRechazadas>();
    m_formato = &Formato();
    m_carpetaDelArchivo = m_ui->Carpeta->Carpeta();
    m_hilo = std::make_unique<HiloDeTrabajo>(
        [corrida = m_enProceso, formato = m_formato, carpeta = m_carpetaDelArchivo, rechazadas = m_rechazadas,
         opciones = OpcionesImportacion{prueba, NuevaPlanilla(), m_rechazadas.get(), !prueba}] {
            corrida->Corre(*formato, carpeta, opciones);
            rechazadas->Cierra();
        },
        [this, prueba](const std::exception_ptr& falla) { Protegido([&] { AlTerminar(falla, prueba); })(); }, this);
}

void frmTransferencia::AlTerminar(const std::exception_ptr& falla, bool prueba) {
    PonCorriendo(false);
    if (falla)
        std::rethrow_exception(falla);
    const std::shared_ptr<CorridaAparte> corrida = m_enProceso; // what follows may end the dialog's hold of it
    Sigue(corrida->Resultado(), prueba);
}

void frmTransferencia::Sigue(const ResultadoImportacion& resultado, bool prueba) {
    RecuerdaCarpeta();
    if (!prueba)
        RecuerdaTotales(resultado);
    if (m_cancelarRun)
        return Abandona(resultado);
    m_archivo = resultado.archivo;
    MuestraFin(resultado);
    PreparaCorreccion(resultado, prueba);
    if (!prueba && resultado.HuboLineas())
        RefrescaLoDebajo();
    CuentaElFin(resultado, prueba);
}

/// Without a word, unless something could not be kept.
void frmTransferencia::Abandona(const ResultadoImportacion& resultado) {
    CuentaLoPerdido(resultado);
    if (resultado.fin == FinImportacion::Fallida)
        m_avisos.Muestra(*resultado.mensaje);
    InsisteEnTotales([this] { Termina(); });
}

/// What stands in its way, such as a lock, mustn't keep the end of the run from being told. The form shows its list
/// anew when the dialog closes, and tells what it then meets.
void frmTransferencia::RefrescaLoDebajo() const {
    if (!m_entorno.refresca)
        return;
    try {
        m_entorno.refresca();
    } catch (const Error&) { // NOLINT(bugprone-empty-catch)
    }
}

/// Nothing but the way out answers while a run is going, and it only to who means it: the focus stays off it, or the
/// key that has begun the run, held a little too long, would end it.
void frmTransferencia::PonCorriendo(bool corriendo) {
    m_corriendo = corriendo;
    if (corriendo) {
        m_reloj.emplace();
        m_ritmo.start(kRitmoMs);
        m_conFoco = focusWidget();
        m_ui->barraAvance->setFocus();
    } else {
        m_ritmo.stop();
        m_reloj.reset();
    }
    for (QWidget* control :
         std::initializer_list<QWidget*>{m_ui->OptTipo_0, m_ui->OptTipo_1, m_ui->cmdProbar, m_ui->cmdTransferir})
        control->setEnabled(!corriendo);
    m_ui->Carpeta->Activa(!corriendo);
    m_ui->cmdGuardarErrores->setEnabled(false);
    m_ui->cmdCorregir->setEnabled(false);
    if (corriendo)
        m_ui->cmdDeshacer->setEnabled(false);
    else
        OfreceDeshacer();
    setAcceptDrops(!corriendo);
    if (!corriendo && m_conFoco && focusWidget() == m_ui->barraAvance)
        m_conFoco->setFocus();
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
    const auto despues = [this] { InsisteEnTotales([] {}); };
    if (prueba || !conRechazos) {
        m_avisos.Muestra(*resultado.mensaje);
        return despues();
    }
    const bool muestra = m_avisos.Pregunta(*resultado.mensaje, Respuesta::No) == Respuesta::Si;
    if (!m_entorno.reporte || resultado.rutaErr.isEmpty())
        return despues();
    // Wanted: the report is built in both answers, so that the launcher has it for who wants it later.
    m_entorno.reporte({.sobre = *this, .rutaErr = resultado.rutaErr, .muestra = muestra, .despues = despues});
}

/// A run that gets as far as the totals makes up for those before it; one without lines leaves them as they were.
void frmTransferencia::RecuerdaTotales(const ResultadoImportacion& resultado) {
    if (!resultado.sinTotales || resultado.HuboLineas())
        m_sinTotales = resultado.sinTotales;
}

/// Box 401 comes from the totals: they aren't left behind without a word.
void frmTransferencia::InsisteEnTotales(const std::function<void()>& despues) {
    if (m_sinTotales && m_avisos.Pregunta(PreguntaPorTotales(*m_sinTotales)) == Respuesta::Si)
        SumaDeNuevo(despues);
    else
        despues();
}

void frmTransferencia::SumaDeNuevo(const std::function<void()>& despues) {
    const auto sigueSin = [this, despues](const std::exception_ptr& falla) {
        try {
            std::rethrow_exception(falla);
        } catch (const Error& error) {
            m_sinTotales = error;
        }
        InsisteEnTotales(despues);
    };
    LanzaTarea(
        *this, {.titulo = u"Sumando los comprobantes"_s, .seDetiene = false, .alFallar = sigueSin},
        [aparte = ProcesoAparte(m_proceso)](Avance& /*avance*/) {
            TablasTrabajo(*aparte.Abre().baseDatos).CalculaTotales();
        },
        [this, despues] {
            m_sinTotales.reset();
            despues();
        });
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

/// While nothing of the file has been imported its lines belong together.
void frmTransferencia::PreparaCorreccion(const ResultadoImportacion& resultado, bool prueba) {
    if (m_rechazadas->Cuantas() == 0 || !m_rechazadas->EstanCompletas())
        return;
    const bool nadaImportado = prueba || resultado.fin == FinImportacion::Rechazada;
    m_correccion = std::make_shared<Correccion>(m_rechazadas, *m_formato, nadaImportado ? resultado.ruta : QString());
    m_ui->cmdCorregir->setEnabled(true);
}

void frmTransferencia::Corregir() {
    FrmCorreccion dialogo(
        {.proceso = m_proceso,
         .avisos = m_avisos,
         .archivos = m_entorno.archivos,
         .clave = m_clave,
         .carpeta = m_carpetaDelArchivo,
         .alImportar = [this](Forma& sobre,
                              const ResultadoImportacion& resultado) { AlImportarCorregidas(sobre, resultado); }},
        m_correccion, this);
    AbreModal(dialogo);
    m_ui->cmdCorregir->setEnabled(m_correccion->Cuantas(EstadoDeLinea::Importada) < m_correccion->Cuantas());
}

/// An import like any other, but that the lines still refused show where they are put right: the report is built for
/// who wants it later.
void frmTransferencia::AlImportarCorregidas(Forma& sobre, const ResultadoImportacion& resultado) {
    m_yaProcesado = true;
    RecuerdaTotales(resultado);
    if (resultado.HuboLineas())
        RefrescaLoDebajo();
    if (m_entorno.reporte && !resultado.rutaErr.isEmpty() && resultado.fin == FinImportacion::Completa)
        m_entorno.reporte({.sobre = sobre, .rutaErr = resultado.rutaErr, .muestra = false, .despues = [] {}});
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
