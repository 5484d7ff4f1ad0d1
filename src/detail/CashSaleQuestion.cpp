#include "detail/CashSaleQuestion.h"

#include "detail/OptionPair.h"
#include "detail/VoucherTypes.h"
#include "detail/ui_CashSaleQuestion.h"

namespace xa518 {

PreguntaContado::PreguntaContado(QWidget* padre) : QWidget(padre), m_ui(std::make_unique<Ui::PreguntaContado>()) {
    m_ui->setupUi(this);
    m_contado = new ParDeOpciones(*m_ui->Label5, {*m_ui->OptVentaCont_0, *m_ui->OptVentaCont_1});
    connect(m_contado, &ParDeOpciones::Contestada, this, [this](int indice) { AlContestar(indice == 1); });
    connect(m_ui->CmbTipoCP, &ListaCodigos::Elegido, this, [this] { AlElegirTipo(); });
}

PreguntaContado::~PreguntaContado() = default;

void PreguntaContado::PonTipos(const QStringList& items) {
    LlenaTiposDeComprobante(*m_ui->CmbTipoCP, items);
}

/// The type comes first: it gives no answer about the credit here, the stored one shows.
void PreguntaContado::Muestra(const QString& tipCp) {
    m_ui->CmbTipoCP->Elige(tipCp);
    Contesta(!tipCp.trimmed().isEmpty());
}

void PreguntaContado::Contesta(bool contado) {
    m_contado->Contesta(contado);
}

void PreguntaContado::Bloquea() {
    m_ui->Label5->setEnabled(false);
    m_contado->Activa(false);
    ActivaTipo(false);
}

Contestacion PreguntaContado::Contado() const {
    return m_contado->Respuesta();
}

QString PreguntaContado::Tipo() const {
    return m_ui->CmbTipoCP->Codigo();
}

QWidget& PreguntaContado::CampoTipo() const {
    return *m_ui->CmbTipoCP;
}

void PreguntaContado::AlContestar(bool contado) {
    ActivaTipo(contado);
    Q_EMIT Cambiada(Cambio::Contado);
}

void PreguntaContado::AlElegirTipo() {
    m_ui->LblDesCP->setText(DescripcionDeItem(m_ui->CmbTipoCP->Item()));
    m_contado->Activa(false); // once a type is picked, the kind of voucher is fixed: wanted, the type belongs to it
    Q_EMIT Cambiada(Cambio::Tipo);
}

void PreguntaContado::ActivaTipo(bool activo) {
    for (QWidget* control : QList<QWidget*>{m_ui->LblTipoCP, m_ui->CmbTipoCP, m_ui->LblDesCP})
        control->setEnabled(activo);
}

} // namespace xa518
