#include "import/frmTransferencia.h"

#include "ui_frmTransferencia.h"

#include "import/Formats.h"
#include "import/ImportFile.h"
#include "import/MountedVolumes.h"
#include "import/RunMessages.h"
#include "platform/FileDialogs.h"
#include "platform/Notices.h"
#include "widgets/Application.h"
#include "widgets/FieldFocus.h"

#include <QDir>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QStyle>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kSeccion = u"Importar"_s;
const QString kClave = u"Carpeta"_s;
const QString kArriba = u".."_s;
constexpr int kUnidadNoDisponible = 68;

/// What was dropped from the file manager: the first thing that lies on this machine.
QString RutaSoltada(const QMimeData& datos) {
    for (const QUrl& url : datos.urls()) {
        if (url.isLocalFile())
            return url.toLocalFile();
    }
    return {};
}

/// What a person types for a folder; `~` is the home folder, as in a terminal.
QString CarpetaEscrita(const QString& escrita) {
    const QString carpeta = QDir::fromNativeSeparators(escrita);
    return carpeta == u"~" || carpeta.startsWith(u"~/"_s) ? QDir::homePath() + carpeta.sliced(1) : carpeta;
}

bool EstaDebajo(const QString& carpeta, const QString& raiz) {
    const QString conBarra = raiz.endsWith(u'/') ? raiz : raiz + u'/';
    return carpeta == raiz || carpeta.startsWith(conBarra);
}

} // namespace

void frmTransferencia::PreparaCarpetas() {
    const QIcon disco = style()->standardIcon(QStyle::SP_DriveHDIcon);
    for (const QString& raiz : VolumenesMontados())
        m_ui->Drive1->addItem(disco, QDir::toNativeSeparators(raiz), raiz);
    for (const Lugar& lugar : CarpetasPersonales())
        m_ui->Drive1->addItem(style()->standardIcon(QStyle::SP_DirHomeIcon),
                              u"%1 (%2)"_s.arg(lugar.nombre, QDir::toNativeSeparators(lugar.ruta)), lugar.ruta);
    const QString recordada = m_entorno.perfil.Lee(kSeccion, kClave);
    PonCarpeta(QDir(recordada).exists() && !recordada.isEmpty() ? recordada : RaizDelPrograma());
}

void frmTransferencia::ConectaCarpetas() {
    connect(m_ui->OptTipo_0, &QRadioButton::toggled, this, Protegido([this] {
                PonDetalle({});
                ListaArchivos();
            }));
    connect(m_ui->Drive1, &QComboBox::activated, this, Protegido([this] { CambiaUnidad(); }));
    connect(m_ui->cmdExaminar, &QPushButton::clicked, this, Protegido([this] { Examinar(); }));
    connect(m_ui->DirDirectorio, &QListWidget::itemActivated, this, Protegido([this] { EntraEnCarpeta(); }));
    AlSalir(*m_ui->TxtCarpeta, [this] {
        const QString escrita = m_ui->TxtCarpeta->text().trimmed();
        if (escrita != QDir::toNativeSeparators(m_rutaArchivos))
            PonCarpeta(CarpetaEscrita(escrita));
        return Salida::Libre;
    });
}

void frmTransferencia::PonCarpeta(const QString& carpeta) {
    m_rutaArchivos = carpeta.isEmpty() ? carpeta : QDir::cleanPath(QDir(carpeta).absolutePath());
    m_ui->TxtCarpeta->setText(QDir::toNativeSeparators(m_rutaArchivos));
    int unidad = -1; // the deepest one that holds the folder
    for (int i = 0; i < m_ui->Drive1->count(); ++i) {
        const QString raiz = m_ui->Drive1->itemData(i).toString();
        if (EstaDebajo(m_rutaArchivos, raiz) &&
            (unidad < 0 || raiz.size() > m_ui->Drive1->itemData(unidad).toString().size()))
            unidad = i;
    }
    m_ui->Drive1->setCurrentIndex(unidad);
    PonDetalle({});
    ListaCarpetas();
    ListaArchivos();
}

void frmTransferencia::CambiaUnidad() {
    const QString raiz = m_ui->Drive1->currentData().toString();
    if (QFileInfo(raiz).isReadable())
        return PonCarpeta(raiz);
    PonCarpeta(m_rutaArchivos); // the list goes back to the unit that is shown
    m_avisos.Muestra(Errores_Transferencia(Error(kUnidadNoDisponible, u"La unidad no está disponible."_s)));
}

void frmTransferencia::Examinar() {
    if (const QString carpeta = m_entorno.archivos.PideCarpeta(u"Examinar"_s, m_rutaArchivos); !carpeta.isEmpty())
        PonCarpeta(carpeta);
}

void frmTransferencia::EntraEnCarpeta() {
    if (const QListWidgetItem* elegida = m_ui->DirDirectorio->currentItem()) {
        PonCarpeta(QDir(m_rutaArchivos).filePath(elegida->text()));
        m_ui->DirDirectorio->setCurrentRow(0);
    }
}

void frmTransferencia::ListaCarpetas() {
    m_ui->DirDirectorio->clear();
    const QDir carpeta(m_rutaArchivos);
    if (m_rutaArchivos.isEmpty() || !carpeta.exists())
        return;
    const QIcon icono = style()->standardIcon(QStyle::SP_DirIcon);
    if (!carpeta.isRoot())
        new QListWidgetItem(style()->standardIcon(QStyle::SP_FileDialogToParent), kArriba, m_ui->DirDirectorio);
    for (const QString& nombre : carpeta.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase))
        new QListWidgetItem(icono, nombre, m_ui->DirDirectorio);
}

/// Only the file of this declaration shows: an empty list is the sign that it isn't there.
void frmTransferencia::ListaArchivos() {
    const QString esperado = NombreDeArchivo(m_proceso, Formato());
    m_ui->flListaFiles->clear();
    const QDir carpeta(m_rutaArchivos);
    const QStringList hallados =
        m_rutaArchivos.isEmpty() ? QStringList() : carpeta.entryList({esperado}, QDir::Files); // without case
    for (const QString& hallado : hallados)
        new QListWidgetItem(style()->standardIcon(QStyle::SP_FileIcon), hallado, m_ui->flListaFiles);
    m_ui->LblEsperado->setText(u"No está aquí: "_s + esperado);
    m_ui->LblEsperado->setVisible(hallados.isEmpty());
}

/// A comfort: where it can't be written the dialog works all the same.
void frmTransferencia::RecuerdaCarpeta() {
    if (m_rutaArchivos.isEmpty() || !QDir(m_rutaArchivos).exists() ||
        m_entorno.perfil.Lee(kSeccion, kClave) == m_rutaArchivos)
        return;
    try {
        m_entorno.perfil.Escribe(kSeccion, kClave, m_rutaArchivos);
    } catch (const Error&) { // NOLINT(bugprone-empty-catch)
    }
}

/// Whoever comes back from the file manager sees what was put there meanwhile.
void frmTransferencia::changeEvent(QEvent* evento) {
    Forma::changeEvent(evento);
    if (evento->type() == QEvent::ActivationChange && isActiveWindow() && !m_corriendo)
        ListaArchivos();
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
        return SeLlama(soltado.filePath(), NombreDeArchivo(m_proceso, formato));
    };
    if (esDe(FormatoVentas()))
        m_ui->OptTipo_1->setChecked(true);
    else if (esDe(FormatoPercepciones()))
        m_ui->OptTipo_0->setChecked(true);
    PonCarpeta(soltado.isDir() ? soltado.filePath() : soltado.path());
}

} // namespace xa518
