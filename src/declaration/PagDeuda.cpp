#include "declaration/PagDeuda.h"

#include "ui_PagDeuda.h"

#include "data/Catalog.h"
#include "widgets/BoxLabel.h"
#include "widgets/FieldFilters.h"
#include "widgets/FieldFocus.h"
#include "widgets/FieldKeys.h"

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPagosPrevios = 402;

} // namespace

PagDeuda::PagDeuda(QWidget* padre) : QWidget(padre), m_ui(std::make_unique<Ui::PagDeuda>()) {
    m_ui->setupUi(this);
    m_campos = {m_ui->TxtValor_401, m_ui->TxtValor_402, m_ui->TxtValor_403,
                m_ui->TxtValor_404, m_ui->TxtValor_405, m_ui->TxtValor_410};
    for (const int casilla : kCasillasMonto)
        ConectaCasilla(casilla);
    for (QLabel* rotulo : {m_ui->LblCasilla_401, m_ui->LblCasilla_402, m_ui->LblCasilla_403, m_ui->LblCasilla_404,
                           m_ui->LblCasilla_405, m_ui->LblCasilla_410})
        ComoNumeroDeCasilla(*rotulo);
    connect(m_ui->FormaDePagoQMD1, &FormaDePagoQMD::Cambiado, this, &PagDeuda::Tocado);
}

PagDeuda::~PagDeuda() = default;

QLineEdit& PagDeuda::Campo(int casilla) const {
    const auto* const lugar = std::find(kCasillasMonto.begin(), kCasillasMonto.end(), casilla);
    return *m_campos.at(static_cast<size_t>(lugar - kCasillasMonto.begin()));
}

void PagDeuda::ConectaCasilla(int casilla) {
    constexpr int kCifrasMostradas = 20;
    QLineEdit& campo = Campo(casilla);
    campo.setMinimumWidth(fontMetrics().horizontalAdvance(QString(kCifrasMostradas, u'0')));
    EntrarComoTab(campo);
    SoloDigitos(campo, u"Sólo números, sin decimales"_s);
    SinPegar(campo);
    LimitaTecleo(campo, kCifrasDeCasilla);
    AlTeclear(campo, [this] { Q_EMIT Tocado(); });
    connect(&campo, &QLineEdit::textEdited, this, &PagDeuda::Tocado); // what a shortcut cuts is a change as well
    FormatosDeFoco(
        campo, [casilla](const QString& texto) { return TextoAlEntrar(casilla, texto); },
        [casilla](const QString& texto) { return TextoAlSalir(casilla, texto); });
    connect(&campo, &QLineEdit::textChanged, this,
            [this, casilla](const QString& texto) { CambiaCasilla(casilla, texto); });
}

void PagDeuda::CambiaCasilla(int casilla, const QString& texto) {
    if (m_montos.Texto(casilla) == texto)
        return;
    m_montos.Cambia(casilla, texto);
    MuestraMontos(m_montos);
}

void PagDeuda::PonBancos(const QList<BancoOfrecido>& bancos) {
    m_ui->FormaDePagoQMD1->PonBancos(bancos);
}

void PagDeuda::MuestraEnviada() {
    for (const int casilla : {kPagosPrevios, 404, 410})
        Campo(casilla).setEnabled(false);
    m_ui->FormaDePagoQMD1->PonEnviado(u"0"_s);
    m_ui->FormaDePagoQMD1->setEnabled(false);
}

void PagDeuda::DejaDeCambiar() {
    for (const int casilla : {kPagosPrevios, 404, 410})
        Campo(casilla).setEnabled(false);
    m_ui->FormaDePagoQMD1->setEnabled(false);
}

void PagDeuda::Muestra(const Declaracion& declaracion) {
    MuestraMontos(declaracion.montos);
    const Pago& pago = declaracion.pago;
    m_ui->FormaDePagoQMD1->PonFormaPago(Letra(pago.forma));
    m_ui->FormaDePagoQMD1->PonBanco(pago.banco);
    m_ui->FormaDePagoQMD1->PonNumeroCheque(pago.numeroCheque);
}

void PagDeuda::MuestraMontos(const Montos& montos) {
    m_montos = montos; // before the fields change, so that none of them counts as typed
    for (const int casilla : kCasillasMonto) {
        if (Campo(casilla).text() != m_montos.Texto(casilla)) // the same text again would move the caret
            Campo(casilla).setText(m_montos.Texto(casilla));
    }
    m_ui->FormaDePagoQMD1->PonImportePagar(m_montos.ImportePagar());
}

Pago PagDeuda::LeePago() const {
    const FormaDePagoQMD& control = *m_ui->FormaDePagoQMD1;
    return {.forma = FormaDeLetra(control.FormaPago()),
            .banco = control.Banco(),
            .numeroCheque = control.NumeroCheque(),
            .importe = control.ImportePagar()};
}

void PagDeuda::DejaCasilla402() {
    QLineEdit& campo = Campo(kPagosPrevios);
    if (campo.isEnabled() && !campo.text().isEmpty())
        campo.setText(TextoAlSalir(kPagosPrevios, campo.text()));
}

} // namespace xa518
