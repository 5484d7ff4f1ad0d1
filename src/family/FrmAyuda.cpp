#include "family/FrmAyuda.h"

#include "widgets/ReadablePalette.h"
#include "widgets/ScreenFit.h"

#include "ui_FrmAyuda.h"

namespace xa518 {

using namespace Qt::StringLiterals;

FrmAyuda::FrmAyuda(const QString& ruta, QWidget* padre)
    : QDialog(padre), m_libro(ruta), m_ui(std::make_unique<Ui::FrmAyuda>()) {
    m_ui->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    m_ui->visor->document()->setDefaultStyleSheet(u"a { color: %1; }"_s.arg(ColorDeEnlace(palette()).name()));
    Conecta();
}

FrmAyuda::~FrmAyuda() = default;

void FrmAyuda::Conecta() {
    QTextBrowser* visor = m_ui->visor;
    connect(m_ui->CmdContenido, &QPushButton::clicked, this, [this] { MuestraContenido(); });
    connect(m_ui->CmdAtras, &QPushButton::clicked, visor, &QTextBrowser::backward);
    connect(m_ui->CmdAdelante, &QPushButton::clicked, visor, &QTextBrowser::forward);
    connect(m_ui->CmdCerrar, &QPushButton::clicked, this, &QDialog::close);
    connect(visor, &QTextBrowser::backwardAvailable, m_ui->CmdAtras, &QPushButton::setEnabled);
    connect(visor, &QTextBrowser::forwardAvailable, m_ui->CmdAdelante, &QPushButton::setEnabled);
    connect(visor, &QTextBrowser::sourceChanged, this,
            [this, visor] { setWindowTitle(u"Ayuda - %1"_s.arg(visor->documentTitle())); });
}

void FrmAyuda::Muestra(const QString& contexto) {
    Presenta(m_libro.Tema(contexto));
}

void FrmAyuda::MuestraContenido() {
    Presenta(LibroAyuda::Contenido());
}

void FrmAyuda::Presenta(const QUrl& pagina) {
    m_ui->visor->setSource(pagina);
    if (!isVisible())
        CabeEnPantalla(*this);
    show();
    raise();
    activateWindow();
}

} // namespace xa518
