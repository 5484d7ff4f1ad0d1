#include "app/frmAcercade.h"

#include "widgets/FrmTexto.h"

#include "ui_frmAcercade.h"

#include <QFileInfo>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// The page of the licences, in a folder with their texts: beside the programs, or where a system keeps the documents
/// of its packages. Empty when there is none.
QString PaginaDeLicencias() {
    const QString programas = QCoreApplication::applicationDirPath();
    for (const QString& carpeta : {u"/licencias"_s, u"/../share/doc/xa518/licencias"_s})
        if (QString pagina = programas + carpeta + u"/licencias.md"_s; QFileInfo::exists(pagina))
            return pagina;
    return {};
}

} // namespace

frmAcercade::frmAcercade(QWidget* padre) : Forma(padre), m_ui(std::make_unique<Ui::frmAcercade>()) {
    m_ui->setupUi(this);
    // Fixed, whatever the design says: it is the version of the form's rules, not of the build.
    m_ui->txtVersion->setText(u"Versión 1.5"_s);
    connect(m_ui->cmdAceptar, &QPushButton::clicked, this, [this] { Salir(); });
    connect(m_ui->cmdLicencias, &QPushButton::clicked, this, [this] { MuestraLicencias(); });
    m_ui->cmdLicencias->setEnabled(!PaginaDeLicencias().isEmpty());
    Prepara({m_ui->cmdAceptar});
    m_ui->cmdAceptar->setFocus(); // Enter closes the box, as it does without the other button
}

frmAcercade::~frmAcercade() = default;

void frmAcercade::MuestraLicencias() {
    FrmTexto licencias(u"Licencias"_s, this);
    licencias.PonArchivo(PaginaDeLicencias());
    AbreModal(licencias);
}

} // namespace xa518
