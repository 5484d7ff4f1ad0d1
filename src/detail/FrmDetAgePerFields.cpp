#include "detail/FrmDetAgePer.h"
#include "detail/OptionPair.h"
#include "detail/VoucherDates.h"
#include "detail/VoucherTypes.h"
#include "detail/ui_FrmDetAgePer.h"
#include "family/Process.h"
#include "platform/Clock.h"
#include "platform/Notices.h"
#include "values/Format.h"
#include "values/Text.h"
#include "widgets/Application.h"
#include "widgets/FieldKeys.h"
#include "widgets/WidgetHelpers.h"

// The fields and questions of the voucher's dialog, and the amounts that follow them.

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAnchoNumero = 8; ///< also with a type whose number may be longer: wanted

QString SinGrupos(const QString& monto) {
    return Format(monto, u"###########0.#0");
}

QString ConGrupos(const QString& monto) {
    return Format(monto, u"###,###,###,##0.#0");
}

} // namespace

void FrmDetAgePer::PreparaCampos() {
    QLineEdit& serie = *m_ui->TxtSerie;
    SoloSerie(serie, [this] { return m_contado->Respuesta() == false || AdmiteLetras(m_ui->CmbTipoCP->Codigo()); });
    CompletaSerie(serie);
    QLineEdit& numero = *m_ui->TxtNumero;
    SoloNumero(numero);
    CompletaConCeros(numero, [] { return kAnchoNumero; });
    for (QLineEdit* campo : QList<QLineEdit*>{&numero, m_ui->TxtMtoBase, m_ui->MkeFecEmis})
        EntrarComoTab(*campo);
    for (QLineEdit* campo : QList<QLineEdit*>{&serie, &numero, m_ui->TxtMtoBase, m_ui->MkeFecEmis}) {
        SinPegar(*campo);
        AlTeclear(*campo, [this] { m_hayCambios = true; });
    }
    AlSalir(*m_ui->MkeFecEmis, [this] { return AlDejarFecha(); });
}

void FrmDetAgePer::PreparaMonto() {
    for (QLineEdit* campo : {m_ui->TxtMtoBase, m_ui->TxtPercepcion}) {
        SoloMonto(*campo);
        FormatosDeFoco(*campo, SinGrupos, ConGrupos);
    }
    const auto porcentaje = [](const QString& factor) { return Format(factor, u"##0.#0"); };
    FormatosDeFoco(*m_ui->TxtFactor, porcentaje, porcentaje);
    connect(m_ui->TxtMtoBase, &QLineEdit::textChanged, this, Protegido([this] { CalculaMontos(); }));
}

void FrmDetAgePer::ConectaPreguntas() {
    connect(m_contado, &ParDeOpciones::Contestada, this, [this](int indice) { AlResponderContado(indice); });
    connect(m_ui->CmbTipoCP, &ListaCodigos::Elegido, this, [this] { AlElegirTipoCP(); });
    const auto alResponder = [this](ParDeOpciones* par, Pregunta pregunta) {
        connect(par, &ParDeOpciones::Contestada, this,
                Protegido([this, pregunta](int indice) { AlResponder(pregunta, indice); }));
    };
    alResponder(m_cpFact, Pregunta::CpFact);
    alResponder(m_listado, Pregunta::Listado);
    alResponder(m_venta, Pregunta::Venta);
    connect(m_medPago, &ParDeOpciones::Contestada, this, Protegido([this](int /*indice*/) {
                if (!EnRangoPrimerIgv()) // wanted: inside the range this answer doesn't count
                    CalculaMontos();
            }));
}

void FrmDetAgePer::AlResponderContado(int indice) {
    const bool contado = indice == 1;
    ActivaTipoCP(contado);
    m_ui->Frame1->setEnabled(!contado);
}

void FrmDetAgePer::ActivaTipoCP(bool activo) {
    for (QWidget* control : QList<QWidget*>{m_ui->LblTipoCP, m_ui->CmbTipoCP, m_ui->LblDesCP})
        control->setEnabled(activo);
}

void FrmDetAgePer::AlElegirTipoCP() {
    const QString tipo = m_ui->CmbTipoCP->Codigo();
    m_ui->LblDesCP->setText(DescripcionDeItem(m_ui->CmbTipoCP->Item()));
    m_contado->Activa(false); // once a type is picked, the kind of voucher is fixed: wanted
    QLineEdit& numero = *m_ui->TxtNumero;
    LimitaTecleo(numero, LimiteDeNumero(tipo));
    if (Recorta(numero.text()).size() > LimiteDeNumero(tipo))
        numero.clear();
    if (m_contado->Respuesta() == true) {
        const Contestacion credito = CreditoDe(tipo);
        if (credito)
            m_cpFact->Contesta(*credito);
        ActivaCredito(!credito);
    }
    if (m_ui->TxtSerie->isEnabled())
        m_ui->TxtSerie->clear();
    m_tipoCP = tipo;
    if (!m_abriendo)
        EnviaTecla(u"TAB"_s);
}

void FrmDetAgePer::ActivaCredito(bool activo) {
    m_ui->FraCpFact->setEnabled(activo);
    m_ui->Label2->setEnabled(activo);
    m_cpFact->Activa(activo);
}

void FrmDetAgePer::ActivaListado(bool activo) {
    m_ui->FraListado->setEnabled(activo);
    m_ui->Label4->setEnabled(activo);
    m_listado->Activa(activo);
}

void FrmDetAgePer::AlResponder(Pregunta pregunta, int indice) {
    CalculaMontos();
    if (pregunta != Pregunta::Listado || m_ui->OptCpFact_1->isEnabled()) // wanted: a forced answer stops the next one
        AplicaEfecto(EfectoDe(pregunta, m_banda, indice));
}

void FrmDetAgePer::AplicaEfecto(const EfectoPregunta& efecto) {
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

Salida FrmDetAgePer::AlDejarFecha() {
    const QString fecha = m_ui->MkeFecEmis->text();
    if (!m_ui->MkeFecEmis->EstaCompleto())
        return Salida::Libre;
    const VeredictoComprobante veredicto = ValidaFecha(fecha, m_proceso->periodoDeclarado, m_proceso->reloj.Hoy());
    if (!veredicto) {
        m_avisos->Muestra(veredicto.Motivo());
        return veredicto.ElCampo() ? Salida::Retenida : Salida::Libre;
    }
    IniciaIgv();
    CalculaMontos();
    return Salida::Libre;
}

void FrmDetAgePer::IniciaIgv() {
    m_periodoEmision = Periodo::DeFecha(m_ui->MkeFecEmis->text()).value_or(Periodo());
    m_tasaIgv = IniIgv(*m_proceso->baseDatos, u"010101"_s, u"998"_s, m_periodoEmision);
}

void FrmDetAgePer::CalculaMontos() {
    const FilaTasa fila = m_tasa.Calcular(LasRespuestas(), m_periodoEmision);
    m_ui->TxtFactor->setText(TextoFactor(fila.factor));
    m_ui->TxtTasa->setText(fila.tasa);
    const QString escrito = m_ui->TxtMtoBase->text();
    const QString monto = LimitaMonto(escrito);
    if (monto != escrito)
        m_ui->TxtMtoBase->setText(monto); // comes back here
    else
        m_ui->TxtPercepcion->setText(Percepcion(monto, fila.factor));
}

} // namespace xa518
