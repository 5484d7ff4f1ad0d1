#include "widgets/PaymentControl.h"

#include "values/ChequeNumber.h"
#include "values/ObjetoUtil.h"
#include "values/Text.h"
#include "widgets/FieldKeys.h"
#include "widgets/WidgetHelpers.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLetrasDeBanco = 40;
const QLatin1StringView kEfectivo("E");
const QLatin1StringView kCheque("C");
const QLatin1StringView kSinElegir("X");
const QLatin1StringView kSinBanco("XX");

QString Recortado(const QString& texto) {
    return Recorta(texto).toString();
}

QLabel* Rotulo(const QString& texto, QWidget* campo) {
    auto* rotulo = new QLabel(texto);
    rotulo->setBuddy(campo);
    return rotulo;
}

} // namespace

FormaDePagoQMD::FormaDePagoQMD(QWidget* padre)
    : QWidget(padre)
    , m_efectivo(new QRadioButton(u"&Efectivo"_s))
    , m_cheque(new QRadioButton(u"&Cheque"_s))
    , m_opciones(new QButtonGroup(this))
    , m_banco(new QComboBox)
    , m_numero(new QLineEdit)
    , m_importe(new QLabel) {
    Nombra();
    Compone();
    Conecta();
    ActivaCheque();
}

void FormaDePagoQMD::Nombra() {
    m_efectivo->setObjectName(u"OptEfectivo"_s);
    m_cheque->setObjectName(u"OptCheque"_s);
    m_banco->setObjectName(u"CmbBanco"_s);
    m_banco->setAccessibleName(u"Banco"_s);
    m_numero->setObjectName(u"TxtNumeroCheque"_s);
    m_numero->setAccessibleName(u"Número de cheque"_s);
    m_importe->setObjectName(u"LblImportePagar"_s);
    m_importe->setAccessibleName(u"Importe a pagar"_s);
}

void FormaDePagoQMD::Compone() {
    m_opciones->addButton(m_efectivo);
    m_opciones->addButton(m_cheque);
    m_banco->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_banco->setMinimumContentsLength(kLetrasDeBanco);
    m_numero->setMaxLength(kLargoCheque);
    m_importe->setTextFormat(Qt::PlainText);
    m_importe->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_importe->setMinimumHeight(m_numero->sizeHint().height());
    m_importe->setFrameStyle(static_cast<int>(QFrame::StyledPanel) | static_cast<int>(QFrame::Sunken));

    auto* marco = new QGroupBox(u"Forma de pago"_s);
    auto* rejilla = new QGridLayout(marco);
    rejilla->addWidget(m_efectivo, 0, 0);
    rejilla->addWidget(m_cheque, 0, 1);
    rejilla->addWidget(Rotulo(u"&Banco :"_s, m_banco), 1, 0);
    rejilla->addWidget(m_banco, 1, 1);
    rejilla->addWidget(Rotulo(u"&Número de cheque :"_s, m_numero), 2, 0);
    rejilla->addWidget(m_numero, 2, 1);
    rejilla->addWidget(new QLabel(u"Importe a pagar :"_s), 3, 0);
    rejilla->addWidget(m_importe, 3, 1);
    rejilla->setColumnStretch(1, 1);

    auto* columna = new QVBoxLayout(this);
    columna->setContentsMargins(0, 0, 0, 0);
    columna->addWidget(marco);
}

void FormaDePagoQMD::Conecta() {
    EntrarComoTab(*m_numero);
    FiltraTeclas(
        *m_numero,
        [](int tecla) {
            const bool cabe = tecla == kRetroceso || EsDeCheque(QChar(static_cast<char16_t>(tecla)));
            return cabe ? tecla : 0;
        },
        u"Sólo letras, sin tilde ni eñe, y números"_s);
    connect(m_efectivo, &QRadioButton::clicked, this, &FormaDePagoQMD::EligeForma);
    connect(m_cheque, &QRadioButton::clicked, this, &FormaDePagoQMD::EligeForma);
    connect(m_banco, &QComboBox::activated, this, &FormaDePagoQMD::Cambiado);
    connect(m_numero, &QLineEdit::textEdited, this, &FormaDePagoQMD::Cambiado);
}

/// Cash drops the cheque's bank and number: they would be stored as boxes of the declaration.
void FormaDePagoQMD::EligeForma() {
    ActivaCheque();
    if (m_efectivo->isChecked()) {
        m_banco->setCurrentIndex(-1);
        m_numero->clear();
    }
    Q_EMIT Cambiado();
}

void FormaDePagoQMD::ActivaCheque() {
    m_banco->setEnabled(m_cheque->isChecked());
    m_numero->setEnabled(m_cheque->isChecked());
}

void FormaDePagoQMD::PonBancos(const QList<BancoOfrecido>& bancos) {
    const QString elegido = Banco();
    m_banco->clear();
    for (const BancoOfrecido& banco : bancos)
        m_banco->addItem(Recortado(banco.codigo) + u"  "_s + Recortado(banco.descripcion), Recortado(banco.codigo));
    PonBanco(elegido);
    AjustaCombo(*this, *m_banco);
}

QString FormaDePagoQMD::FormaPago() const {
    if (m_efectivo->isChecked())
        return kEfectivo;
    return m_cheque->isChecked() ? kCheque : kSinElegir;
}

/// A group of options allows no return to "none" by itself.
void FormaDePagoQMD::PonFormaPago(const QString& forma) {
    m_opciones->setExclusive(false);
    m_efectivo->setChecked(forma == kEfectivo);
    m_cheque->setChecked(forma == kCheque);
    m_opciones->setExclusive(true);
    ActivaCheque();
}

QString FormaDePagoQMD::Banco() const {
    const QString codigo = m_banco->currentData().toString();
    return codigo.isEmpty() ? QString(kSinBanco) : codigo;
}

void FormaDePagoQMD::PonBanco(const QString& codigo) {
    const QString propio = Recortado(codigo);
    if (propio.isEmpty() || propio == kSinBanco) {
        m_banco->setCurrentIndex(-1);
        return;
    }
    if (m_banco->findData(propio) < 0)
        m_banco->addItem(propio, propio);
    m_banco->setCurrentIndex(m_banco->findData(propio));
}

QString FormaDePagoQMD::NumeroCheque() const {
    return Recortado(m_numero->text());
}

void FormaDePagoQMD::PonNumeroCheque(const QString& numero) {
    m_numero->setText(Recortado(numero));
}

QString FormaDePagoQMD::ImportePagar() const {
    return m_importe->text();
}

void FormaDePagoQMD::PonImportePagar(const QString& importe) {
    m_importe->setText(importe);
}

} // namespace xa518
