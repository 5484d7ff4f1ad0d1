#include "widgets/FrmTexto.h"

#include "widgets/ReadablePalette.h"

#include "ui_FrmTexto.h"

namespace xa518 {

using namespace Qt::StringLiterals;

/// The base takes every text for a page.
QVariant VisorTexto::loadResource(int clase, const QUrl& nombre) {
    QVariant leido = QTextBrowser::loadResource(clase, nombre);
    if (!nombre.path().endsWith(u".txt"))
        return leido;
    const QString texto = QString::fromUtf8(leido.toByteArray());
    return u"<pre style='white-space: pre-wrap'>%1</pre>"_s.arg(texto.toHtmlEscaped());
}

FrmTexto::FrmTexto(const QString& titulo, QWidget* padre) : Forma(padre), m_ui(std::make_unique<Ui::FrmTexto>()) {
    m_ui->setupUi(this);
    setWindowTitle(titulo);
    SaleConEsc();
    QTextBrowser* visor = m_ui->visor;
    QPalette paleta = visor->palette();
    paleta.setColor(QPalette::Link, ColorDeEnlace(paleta));
    visor->setPalette(paleta);
    m_ui->CmdAtras->hide();
    connect(m_ui->CmdAtras, &QPushButton::clicked, visor, &QTextBrowser::backward);
    connect(visor, &QTextBrowser::backwardAvailable, m_ui->CmdAtras, &QPushButton::setVisible);
    connect(m_ui->CmdCerrar, &QPushButton::clicked, this, [this] { Salir(); });
    Prepara({m_ui->CmdCerrar});
}

FrmTexto::~FrmTexto() = default;

void FrmTexto::PonTexto(const QString& texto) {
    m_ui->visor->setMarkdown(texto);
}

void FrmTexto::PonArchivo(const QString& ruta) {
    m_ui->visor->setSource(QUrl::fromLocalFile(ruta));
}

} // namespace xa518
