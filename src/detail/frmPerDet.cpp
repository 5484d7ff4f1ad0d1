#include "detail/frmPerDet.h"

#include "detail/ShowVerdict.h"
#include "detail/VoucherDates.h"
#include "detail/VoucherTypes.h"
#include "detail/ui_frmPerDet.h"
#include "platform/Clock.h"
#include "values/Format.h"
#include "values/Text.h"
#include "widgets/Application.h"
#include "widgets/FieldFilters.h"
#include "widgets/FieldKeys.h"
#include "widgets/HourGlass.h"
#include "widgets/ReadablePalette.h"
#include "widgets/WidgetHelpers.h"

namespace xa518 {

using namespace Qt::StringLiterals;

frmPerDet::frmPerDet(EntornoDetalle entorno, ModoDetalle modo, const ComprobanteDePago& pago, QString lblTipo,
                     QWidget* padre)
    : Forma(padre)
    , m_ui(std::make_unique<Ui::frmPerDet>())
    , m_entorno(std::move(entorno))
    , m_modo(modo)
    , m_comprobante(pago.clave.comprobante)
    , m_lblTipo(std::move(lblTipo)) {
    const RelojDeArena reloj;
    m_ui->setupUi(this);
    Prepara({m_ui->CmdOpciones_1});
    PreparaCampos();
    PreparaMonto();
    ConectaBotones();
    CargaTipoDoc();
    if (!EsNuevo())
        MuestraPago(pago);
    m_ui->CmdOpciones_0->setEnabled(!SoloVer());
    if (SoloVer())
        ComoSoloLectura(*this);
    m_cargando = false;
}

frmPerDet::~frmPerDet() = default;

void frmPerDet::PreparaCampos() {
    const auto marca = [this] { m_hayCambiosPago = true; };
    const auto tipo = [this] { return m_ui->CmbTipoDoc->Codigo(); };
    QLineEdit& serie = *m_ui->TxtSerie;
    SoloSerie(serie, [tipo] { return AdmiteLetras(tipo()); });
    CompletaSerie(serie);
    QLineEdit& numero = *m_ui->TxtNumero;
    SoloNumero(numero);
    CompletaConCeros(numero, [tipo] { return LimiteDeNumero(tipo()); });
    for (QLineEdit* campo : QList<QLineEdit*>{&numero, m_ui->MkeFecEmis, m_ui->TxtMtoDet})
        EntrarComoTab(*campo);
    for (QLineEdit* campo : QList<QLineEdit*>{&serie, &numero, m_ui->TxtMtoDet})
        AlTeclear(*campo, marca); // the date alone is no change: wanted, it is checked when it is left
    for (QLineEdit* campo : QList<QLineEdit*>{&serie, &numero, m_ui->MkeFecEmis, m_ui->TxtMtoDet})
        SinPegar(*campo);
    AlSalir(*m_ui->MkeFecEmis, [this] { return AlDejarFecha(); });
}

void frmPerDet::PreparaMonto() {
    QLineEdit& monto = *m_ui->TxtMtoDet;
    const auto limites = [this]() -> const MontoDePago& { return MontoDe(m_ui->CmbTipoDoc->Codigo()); };
    SoloMonto(monto, [limites] { return LimitesDeMonto{limites().conPunto, limites().sinPunto}; });
    FormatosDeFoco(
        monto, [limites](const QString& texto) { return Format(texto, limites().mascara); },
        [](const QString& texto) { return Format(texto, u"###,###,###,##0.#0"); });
    AlEntrar(monto, [&monto, limites] { LimitaTecleo(monto, limites().conPunto); });
    connect(&monto, &QLineEdit::textChanged, this, Protegido([this, &monto](const QString& escrito) {
        const QString queda = LimitaMontoDePago(m_ui->CmbTipoDoc->Codigo(), escrito);
        if (queda != escrito)
            monto.setText(queda);
    }));
}

void frmPerDet::ConectaBotones() {
    connect(m_ui->CmbTipoDoc, &ListaCodigos::Elegido, this, [this] { AlElegirTipoDoc(); });
    connect(m_ui->CmdOpciones_0, &QPushButton::clicked, this, Protegido([this] { AlAceptar(); }));
    connect(m_ui->CmdOpciones_1, &QPushButton::clicked, this, Protegido([this] { Salir(); }));
}

void frmPerDet::CargaTipoDoc() {
    LlenaTiposDeComprobante(*m_ui->CmbTipoDoc, TiposDePago(m_entorno.base, m_lblTipo));
}

void frmPerDet::MuestraPago(const ComprobanteDePago& pago) {
    const QString& tipo = pago.clave.tipo;
    m_ui->CmbTipoDoc->Elige(tipo);
    m_ui->TxtSerie->setText(pago.clave.serie);
    m_ui->TxtNumero->setText(pago.clave.numero);
    m_ui->MkeFecEmis->setText(pago.fecha);
    m_ui->TxtMtoDet->setText(MontoEditado(tipo, pago.monto));
    for (QWidget* campo : QList<QWidget*>{m_ui->CmbTipoDoc, m_ui->TxtSerie, m_ui->TxtNumero})
        campo->setEnabled(false);
    m_ui->MkeFecEmis->setEnabled(!SoloVer());
    m_ui->TxtMtoDet->setEnabled(!SoloVer());
    if (!SoloVer())
        m_ui->MkeFecEmis->setFocus(); // with its text selected, to be typed over
}

void frmPerDet::LimpiaCampos() {
    m_ui->LblDesDoc->clear();
    for (QLineEdit* campo : {m_ui->TxtSerie, m_ui->TxtNumero, m_ui->TxtMtoDet})
        campo->clear();
    m_ui->MkeFecEmis->setText({});
    CargaTipoDoc();
    m_ui->CmbTipoDoc->setFocus();
}

void frmPerDet::AlElegirTipoDoc() {
    const QString tipo = m_ui->CmbTipoDoc->Codigo();
    m_ui->LblDesDoc->setText(DescripcionDeItem(m_ui->CmbTipoDoc->Item()));
    QLineEdit& numero = *m_ui->TxtNumero;
    LimitaTecleo(numero, LimiteDeNumero(tipo));
    if (Recorta(numero.text()).size() > LimiteDeNumero(tipo))
        numero.clear();
    LimitaTecleo(*m_ui->TxtMtoDet, MontoDe(tipo).limite);
    if (tipo == u"07")
        m_ui->TxtMtoDet->clear();
    if (!m_cargando)
        EnviaTecla(u"TAB"_s);
}

/// A date before 2005 that the person confirms lets the focus go on, as a TAB would.
Salida frmPerDet::AlDejarFecha() {
    if (!m_ui->MkeFecEmis->EstaCompleto())
        return Salida::Libre;
    const std::optional<VeredictoComprobante> veredicto = FechaOrigen();
    if (!veredicto)
        return Salida::Retenida;
    if (*veredicto)
        return Salida::Libre;
    m_entorno.avisos.Muestra(veredicto->Motivo());
    return veredicto->ElCampo() ? Salida::Retenida : Salida::Libre;
}

std::optional<VeredictoComprobante> frmPerDet::FechaOrigen() const {
    const auto confirma = [this](const Mensaje& pregunta) {
        return m_entorno.avisos.Pregunta(pregunta) == Respuesta::Si;
    };
    return ValidaFechaOrigen(m_ui->MkeFecEmis->text(), m_entorno.declarado, m_entorno.reloj.Hoy(),
                             m_cargando ? Confirmacion() : Confirmacion(confirma));
}

void frmPerDet::AlAceptar() {
    if (!Acepta())
        return;
    if (!EsNuevo()) {
        Termina();
        return;
    }
    LimpiaCampos();
    m_hayCambiosPago = false;
}

bool frmPerDet::Acepta() {
    const DatosPago datos = Datos();
    if (!Pasa(ValidaGrabar(datos, [this] { return FechaOrigen(); })))
        return false;
    PagosTrabajo pagos(m_entorno.base);
    const MontoEscrito monto = MontoGuardado(datos.tipo, datos.monto, EsNuevo());
    if (!EsNuevo()) {
        pagos.Modifica(Clave(), datos.fecha, monto);
    } else if (pagos.Existe(Clave())) {
        Rechaza(m_entorno.avisos, u"La información ya ha sido registrada"_s);
        return false;
    } else {
        pagos.Agrega(Clave(), datos.fecha, monto);
    }
    Q_EMIT Guardado();
    m_entorno.avisos.Muestra({Icono::Informacion, u"La información se grabó satisfactoriamente"_s, {}});
    return true;
}

/// Without a verdict the person took the date back, and goes on there.
bool frmPerDet::Pasa(const std::optional<VeredictoComprobante>& veredicto) {
    if (veredicto)
        return Atiende(m_entorno.avisos, *veredicto,
                       [this](CampoComprobante campo) -> QWidget& { return Control(campo); });
    Enfoca(*m_ui->MkeFecEmis);
    return false;
}

/// No rule names the question about the list here: this dialog hasn't got it.
QWidget& frmPerDet::Control(CampoComprobante campo) const {
    switch (campo) {
    case CampoComprobante::Tipo:
    case CampoComprobante::Listado: break;
    case CampoComprobante::Serie: return *m_ui->TxtSerie;
    case CampoComprobante::Numero: return *m_ui->TxtNumero;
    case CampoComprobante::Fecha: return *m_ui->MkeFecEmis;
    case CampoComprobante::Monto: return *m_ui->TxtMtoDet;
    }
    return *m_ui->CmbTipoDoc;
}

void frmPerDet::Salir() {
    if (!SoloVer() && m_hayCambiosPago && PreguntaGuardar(m_entorno.avisos))
        (void)Acepta(); // it closes even when that is refused: wanted, the question is about leaving
    Termina();
}

DatosPago frmPerDet::Datos() const {
    return {.tipo = m_ui->CmbTipoDoc->Codigo(),
            .serie = m_ui->TxtSerie->text(),
            .numero = m_ui->TxtNumero->text(),
            .fecha = m_ui->MkeFecEmis->text(),
            .monto = m_ui->TxtMtoDet->text()};
}

ClavePago frmPerDet::Clave() const {
    return {.comprobante = m_comprobante,
            .tipo = m_ui->CmbTipoDoc->Codigo(),
            .serie = m_ui->TxtSerie->text(),
            .numero = m_ui->TxtNumero->text()};
}

} // namespace xa518
