#include "import/ImportFolder.h"

#include "ui_ImportFolder.h"

#include "import/MountedVolumes.h"
#include "widgets/Application.h"
#include "widgets/FieldFocus.h"

#include <QDir>
#include <QStyle>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kArriba = u".."_s;

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

CarpetaDeImportacion::CarpetaDeImportacion(QWidget* padre)
    : QWidget(padre), m_ui(std::make_unique<Ui::CarpetaDeImportacion>()) {
    m_ui->setupUi(this);
    PonDetalle({});
    PreparaUnidades();
    Conecta();
}

CarpetaDeImportacion::~CarpetaDeImportacion() = default;

void CarpetaDeImportacion::PreparaUnidades() {
    const QIcon disco = style()->standardIcon(QStyle::SP_DriveHDIcon);
    for (const QString& raiz : VolumenesMontados())
        m_ui->Drive1->addItem(disco, QDir::toNativeSeparators(raiz), raiz);
    for (const Lugar& lugar : CarpetasPersonales())
        m_ui->Drive1->addItem(style()->standardIcon(QStyle::SP_DirHomeIcon),
                              u"%1 (%2)"_s.arg(lugar.nombre, QDir::toNativeSeparators(lugar.ruta)), lugar.ruta);
}

void CarpetaDeImportacion::Conecta() {
    connect(m_ui->Drive1, &QComboBox::activated, this, Protegido([this] { CambiaUnidad(); }));
    connect(m_ui->cmdExaminar, &QPushButton::clicked, this, &CarpetaDeImportacion::Examinar);
    connect(m_ui->DirDirectorio, &QListWidget::itemActivated, this, Protegido([this] { EntraEnCarpeta(); }));
    AlSalir(*m_ui->TxtCarpeta, [this] {
        const QString escrita = m_ui->TxtCarpeta->text().trimmed();
        if (escrita != QDir::toNativeSeparators(m_carpeta))
            PonCarpeta(CarpetaEscrita(escrita));
        return Salida::Libre;
    });
}

void CarpetaDeImportacion::PonEsperado(const QString& nombre) {
    m_esperado = nombre;
    PonDetalle({});
    ListaArchivos();
}

void CarpetaDeImportacion::PonCarpeta(const QString& carpeta) {
    m_carpeta = carpeta.isEmpty() ? carpeta : QDir::cleanPath(QDir(carpeta).absolutePath());
    m_ui->TxtCarpeta->setText(QDir::toNativeSeparators(m_carpeta));
    MarcaUnidad();
    PonDetalle({});
    ListaCarpetas();
    ListaArchivos();
}

/// The deepest unit that holds the folder.
void CarpetaDeImportacion::MarcaUnidad() {
    int unidad = -1;
    for (int i = 0; i < m_ui->Drive1->count(); ++i) {
        const QString raiz = m_ui->Drive1->itemData(i).toString();
        if (EstaDebajo(m_carpeta, raiz) &&
            (unidad < 0 || raiz.size() > m_ui->Drive1->itemData(unidad).toString().size()))
            unidad = i;
    }
    m_ui->Drive1->setCurrentIndex(unidad);
}

void CarpetaDeImportacion::CambiaUnidad() {
    const QString raiz = m_ui->Drive1->currentData().toString();
    if (QFileInfo(raiz).isReadable())
        return PonCarpeta(raiz);
    PonCarpeta(m_carpeta); // the list goes back to the unit that is shown
    Q_EMIT UnidadNoDisponible();
}

void CarpetaDeImportacion::EntraEnCarpeta() {
    if (const QListWidgetItem* elegida = m_ui->DirDirectorio->currentItem()) {
        PonCarpeta(QDir(m_carpeta).filePath(elegida->text()));
        m_ui->DirDirectorio->setCurrentRow(0);
    }
}

void CarpetaDeImportacion::ListaCarpetas() {
    m_ui->DirDirectorio->clear();
    const QDir carpeta(m_carpeta);
    if (m_carpeta.isEmpty() || !carpeta.exists())
        return;
    const QIcon icono = style()->standardIcon(QStyle::SP_DirIcon);
    if (!carpeta.isRoot())
        new QListWidgetItem(style()->standardIcon(QStyle::SP_FileDialogToParent), kArriba, m_ui->DirDirectorio);
    for (const QString& nombre : carpeta.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase))
        new QListWidgetItem(icono, nombre, m_ui->DirDirectorio);
}

void CarpetaDeImportacion::ListaArchivos() {
    m_ui->flListaFiles->clear();
    const QDir carpeta(m_carpeta);
    const QStringList hallados =
        m_carpeta.isEmpty() ? QStringList() : carpeta.entryList({m_esperado}, QDir::Files); // without case
    for (const QString& hallado : hallados)
        new QListWidgetItem(style()->standardIcon(QStyle::SP_FileIcon), hallado, m_ui->flListaFiles);
    m_ui->LblEsperado->setText(u"No está aquí: "_s + m_esperado);
    m_ui->LblEsperado->setVisible(hallados.isEmpty());
}

void CarpetaDeImportacion::PonDetalle(const QString& detalle) {
    m_ui->LblDefecto->setText(detalle);
    m_ui->LblDefecto->setVisible(!detalle.isEmpty());
}

void CarpetaDeImportacion::Activa(bool activa) {
    for (QWidget* control : std::initializer_list<QWidget*>{m_ui->Drive1, m_ui->TxtCarpeta, m_ui->cmdExaminar,
                                                            m_ui->DirDirectorio, m_ui->flListaFiles})
        control->setEnabled(activa);
}

} // namespace xa518
