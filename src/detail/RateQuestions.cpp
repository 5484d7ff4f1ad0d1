#include "detail/RateQuestions.h"

#include "detail/OptionPair.h"
#include "detail/ui_RateQuestions.h"
#include "form518/LawBands.h"
#include "form518/WorkVouchers.h"

namespace xa518 {

PreguntasTasa::PreguntasTasa(QWidget* padre) : QWidget(padre), m_ui(std::make_unique<Ui::PreguntasTasa>()) {
    m_ui->setupUi(this);
    m_cpFact = new ParDeOpciones(*m_ui->Label2, {*m_ui->OptCpFact_0, *m_ui->OptCpFact_1});
    m_listado = new ParDeOpciones(*m_ui->Label4, {*m_ui->OptListado_0, *m_ui->OptListado_1});
    m_venta = new ParDeOpciones(*m_ui->Label6, {*m_ui->OptVenta_0, *m_ui->OptVenta_1});
    m_medPago = new ParDeOpciones(*m_ui->Label3, {*m_ui->OptMedPago_0, *m_ui->OptMedPago_1});
    const auto alResponder = [this](ParDeOpciones* par, Pregunta pregunta) {
        connect(par, &ParDeOpciones::Contestada, this, [this, pregunta](int indice) { AlResponder(pregunta, indice); });
    };
    alResponder(m_cpFact, Pregunta::CpFact);
    alResponder(m_listado, Pregunta::Listado);
    alResponder(m_venta, Pregunta::Venta);
    connect(m_medPago, &ParDeOpciones::Contestada, this, [this](int /*indice*/) {
        if (!m_hastaPrimerIgv) // wanted: inside the range this answer doesn't count
            Q_EMIT Cambiadas();
    });
}

PreguntasTasa::~PreguntasTasa() = default;

void PreguntasTasa::PonPeriodo(Periodo declarado, Periodo primerIgv) {
    m_banda = BandaDe(declarado, primerIgv);
    m_hastaPrimerIgv = HastaPrimerIgv(declarado, primerIgv);
    m_porZona = PreguntaPorZona(declarado);
    if (!m_porZona)
        ApagaZona();
}

void PreguntasTasa::ApagaZona() {
    m_ui->Frame4->setEnabled(false);
    m_ui->Label6->setEnabled(false);
    m_venta->Activa(false);
    m_venta->Borra();
}

/// A stored answer about the zone has its effects on the others also in a period that doesn't ask, and then goes.
void PreguntasTasa::Muestra(const CamposComprobante& campos) {
    m_cpFact->Contesta(campos.cpFact);
    m_listado->Contesta(campos.listaClie);
    m_venta->Contesta(campos.medPago);
    if (!m_porZona)
        m_venta->Borra();
}

Respuestas PreguntasTasa::Lee() const {
    return {.cpFact = m_cpFact->Respuesta(),
            .listado = m_listado->Respuesta(),
            .venta = m_venta->Respuesta(),
            .medPago = m_medPago->Respuesta()};
}

bool PreguntasTasa::ExigeListado() const {
    return m_ui->FraListado->isEnabled();
}

QWidget& PreguntasTasa::CampoListado() const {
    return *m_ui->OptListado_0;
}

void PreguntasTasa::RespondeCredito(const Contestacion& credito) {
    if (credito)
        m_cpFact->Contesta(*credito);
    ActivaCredito(!credito);
}

void PreguntasTasa::FijaCredito() {
    ActivaCredito(false);
    ActivaListado(false);
}

void PreguntasTasa::FijaMedioDePago() {
    ApagaMarcoMedioDePago();
    m_medPago->Activa(false);
}

void PreguntasTasa::ApagaMedioDePagoEnRango() {
    if (m_hastaPrimerIgv)
        ApagaMarcoMedioDePago();
}

void PreguntasTasa::Bloquea() {
    FijaCredito();
    ApagaMarcoMedioDePago();
    m_venta->Activa(false);
}

/// The rate is asked for before the other questions change. Wanted: it is that of the answers as the person saw them.
void PreguntasTasa::AlResponder(Pregunta pregunta, int indice) {
    Q_EMIT Cambiadas();
    if (pregunta != Pregunta::Listado || m_ui->OptCpFact_1->isEnabled()) // wanted: a forced answer stops the next one
        AplicaEfecto(EfectoDe(pregunta, m_banda, indice));
}

void PreguntasTasa::AplicaEfecto(const EfectoPregunta& efecto) {
    if (efecto.listado != EfectoPregunta::Listado::Igual)
        ActivaListado(efecto.listado == EfectoPregunta::Listado::Activo);
    if (efecto.listado == EfectoPregunta::Listado::Borrado)
        m_listado->Borra();
    if (!efecto.medPago)
        m_medPago->Borra();
    m_medPago->Activa(efecto.medPago);
    m_ui->FraMedPago->setEnabled(false);
    m_ui->Label3->setEnabled(efecto.medPago);
}

void PreguntasTasa::ActivaCredito(bool activo) {
    m_ui->FraCpFact->setEnabled(activo);
    m_ui->Label2->setEnabled(activo);
    m_cpFact->Activa(activo);
}

void PreguntasTasa::ActivaListado(bool activo) {
    m_ui->FraListado->setEnabled(activo);
    m_ui->Label4->setEnabled(activo);
    m_listado->Activa(activo);
}

void PreguntasTasa::ApagaMarcoMedioDePago() {
    m_ui->FraMedPago->setEnabled(false);
    m_ui->Label3->setEnabled(false);
}

} // namespace xa518
