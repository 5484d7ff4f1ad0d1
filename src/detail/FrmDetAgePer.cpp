#include "detail/FrmDetAgePer.h"

#include "detail/ShowVerdict.h"
#include "detail/VoucherDates.h"
#include "detail/VoucherTypes.h"
#include "detail/frmPerDet.h"
#include "detail/ui_FrmDetAgePer.h"
#include "form518/LastDelete.h"
#include "platform/Clock.h"
#include "values/Format.h"
#include "values/Text.h"
#include "widgets/Application.h"
#include "widgets/FieldFilters.h"
#include "widgets/FieldKeys.h"
#include "widgets/HourGlass.h"
#include "widgets/ReadablePalette.h"
#include "widgets/WidgetHelpers.h"

#include <QShortcut>
#include <QStyledItemDelegate>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAnchoNumero = 8; ///< also with a type whose number may be longer: wanted, that one stays as typed
const QString kYaRegistrada = u"La información ya ha sido registrada"_s;

int Campo(ColumnaPago columna) {
    return static_cast<int>(columna);
}

QString SinGrupos(const QString& monto) {
    return Format(monto, kMascaraDeMonto);
}

QString ConGrupos(const QString& monto) {
    return Format(monto, u"###,###,###,##0.#0");
}

/// Amounts of the grid of payment vouchers.
class CeldaDeMonto final : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    [[nodiscard]] QString displayText(const QVariant& valor, const QLocale& /*local*/) const override {
        return MontoEnGrilla(valor.toString());
    }
};

/// The code of the type is in the rows, for the rules, but isn't shown.
QList<ColumnaDeGrilla> ColumnasDePagos() {
    const auto columna = [](const QString& titulo, ColumnaPago campo, bool derecha = false) {
        return ColumnaDeGrilla{titulo, static_cast<int>(campo), derecha, {}};
    };
    using enum ColumnaPago;
    return {columna(u"Tipo de Documento"_s, Descripcion), columna(u"Serie"_s, Serie), columna(u"Número"_s, Numero),
            columna(u"Fec. Emisión"_s, Fecha), columna(u"Monto"_s, Monto, true)};
}

} // namespace

FrmDetAgePer::FrmDetAgePer(EntornoDetalle entorno, ModoDetalle modo, const Comprobante& comprobante, QWidget* padre)
    : Forma(padre)
    , m_ui(std::make_unique<Ui::FrmDetAgePer>())
    , m_entorno(std::move(entorno))
    , m_modo(modo)
    , m_cliente(comprobante.clave.cliente)
    , m_tasa(m_entorno.base, m_entorno.declarado, m_entorno.primerIgv)
    , m_pagos(ColumnasDePagos()) {
    const RelojDeArena reloj;
    m_ui->setupUi(this);
    Prepara({m_ui->CmdOpciones_1});
    m_ui->PreguntasDeTasa->PonPeriodo(m_entorno.declarado, m_entorno.primerIgv);
    PreparaGrilla();
    PreparaCampos();
    PreparaMonto();
    ConectaPreguntas();
    ConectaBotones();
    Abre(comprobante);
}

FrmDetAgePer::~FrmDetAgePer() = default;

void FrmDetAgePer::PreparaGrilla() {
    m_ui->GrdDetPer->setModel(&m_pagos);
    const int monto = m_pagos.columnCount() - 1;
    m_ui->GrdDetPer->setItemDelegateForColumn(monto, new CeldaDeMonto(this));
}

void FrmDetAgePer::PreparaCampos() {
    QLineEdit& serie = *m_ui->TxtSerie;
    SoloSerie(serie, [this] {
        return m_ui->PreguntaDeContado->EsOrdinario() || AdmiteLetras(m_ui->PreguntaDeContado->Tipo());
    });
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

void FrmDetAgePer::ConectaBotones() {
    const auto alPulsar = [this](QAbstractButton* boton, void (FrmDetAgePer::*manejador)()) {
        connect(boton, &QAbstractButton::clicked, this, Protegido([this, manejador] { (this->*manejador)(); }));
    };
    alPulsar(m_ui->CmdOpciones1_0, &FrmDetAgePer::NuevoPago);
    alPulsar(m_ui->CmdOpciones1_1, &FrmDetAgePer::ModificarPago);
    alPulsar(m_ui->CmdOpciones1_2, &FrmDetAgePer::EliminarPago);
    alPulsar(m_ui->CmdOpciones_1, &FrmDetAgePer::Salir);
    connect(m_ui->CmdOpciones_0, &QPushButton::clicked, this, Protegido([this] {
                if (Acepta())
                    Termina();
            }));
    connect(new QShortcut(QKeySequence::Undo, this), &QShortcut::activated, this,
            Protegido([this] { RecuperaPago(); }));
    connect(m_ui->GrdDetPer, &GrillaDeLectura::FilaActivada, this, Protegido([this] { ModificarPago(); }));
}

void FrmDetAgePer::ConectaPreguntas() {
    connect(m_ui->PreguntaDeContado, &PreguntaContado::Cambiada, this,
            [this](PreguntaContado::Cambio cambio) { AlCambiarClase(cambio); });
    connect(m_ui->PreguntasDeTasa, &PreguntasTasa::Cambiadas, this, Protegido([this] { CalculaMontos(); }));
}

void FrmDetAgePer::Abre(const Comprobante& comprobante) {
    IniciaIgv(); // the date isn't there yet: wanted, leaving it looks the rate up again
    LlenaTiposDeDocumento(*m_ui->CmbTipDoc, m_entorno.base, m_cliente.tipoDoc);
    m_ui->CmbTipDoc->Elige(m_cliente.tipoDoc);
    m_ui->TxtNumDoc->setText(m_cliente.numero);
    m_ui->PreguntaDeContado->PonTipos(TiposDeContado(m_entorno.base));
    if (EsNuevo())
        m_ui->PreguntaDeContado->Contesta(false);
    else
        MuestraComprobante(comprobante);
    if (m_modo == ModoDetalle::Ver)
        DesActiva(); // after the answers, which enable the buttons
    m_abriendo = false;
}

/// The answers of a stored voucher can't be changed, only its date and its amount.
void FrmDetAgePer::MuestraComprobante(const Comprobante& comprobante) {
    const ClaveComprobante& clave = comprobante.clave;
    m_ui->PreguntaDeContado->Muestra(clave.tipCp);
    m_ui->TxtSerie->setText(clave.serie);
    m_ui->TxtNumero->setText(clave.numero);
    m_ui->TxtSerie->setEnabled(false);
    m_ui->TxtNumero->setEnabled(false);
    m_ui->PreguntasDeTasa->Muestra(comprobante.campos);
    m_ui->PreguntaDeContado->Bloquea();
    m_ui->PreguntasDeTasa->Bloquea();
    MuestraCampos(comprobante.campos);
}

/// The stored perception shows, over what the amount computes. Wanted: rate and factor show 0 until the date is left.
void FrmDetAgePer::MuestraCampos(const CamposComprobante& campos) {
    m_ui->MkeFecEmis->setText(campos.fecha);
    m_ui->TxtMtoBase->setText(campos.base.Texto());
    m_ui->TxtPercepcion->setText(TextoDePercepcion(campos.percepcion));
    m_ui->MkeFecEmis->setFocus(); // leaving it computes the rate, which is stored also when nothing else is touched
}

void FrmDetAgePer::DesActiva() {
    ComoSoloLectura(*this);
    for (QWidget* campo : QList<QWidget*>{m_ui->MkeFecEmis, m_ui->TxtMtoBase}) {
        QPalette colores = campo->palette();
        colores.setColor(QPalette::Disabled, QPalette::Base, QColor(0xC0, 0xC0, 0xC0));
        colores.setColor(QPalette::Disabled, QPalette::Text, Qt::black); // readable on that grey in any palette
        campo->setPalette(colores);
    }
    for (QWidget* control : QList<QWidget*>{m_ui->MkeFecEmis, m_ui->TxtMtoBase, m_ui->CmdOpciones1_0,
                                            m_ui->CmdOpciones1_1, m_ui->CmdOpciones1_2, m_ui->CmdOpciones_0})
        control->setEnabled(false);
}

void FrmDetAgePer::AlActivar() {
    const int fila = m_ui->GrdDetPer->Fila();
    LigaGrilla();
    m_ui->GrdDetPer->PonFila(fila);
    m_ui->GrdDetPer->AjustaColumnas(Campo(ColumnaPago::Descripcion));
    m_ui->PreguntasDeTasa->ApagaMedioDePagoEnRango();
}

void FrmDetAgePer::AlCambiarClase(PreguntaContado::Cambio cambio) {
    if (cambio == PreguntaContado::Cambio::Tipo)
        AlElegirTipoCP();
    else
        m_ui->Frame1->setEnabled(!m_ui->PreguntaDeContado->EsContado());
}

void FrmDetAgePer::AlElegirTipoCP() {
    const QString tipo = m_ui->PreguntaDeContado->Tipo();
    QLineEdit& numero = *m_ui->TxtNumero;
    LimitaTecleo(numero, LimiteDeNumero(tipo));
    if (Recorta(numero.text()).size() > LimiteDeNumero(tipo))
        numero.clear();
    if (m_ui->PreguntaDeContado->EsContado())
        m_ui->PreguntasDeTasa->RespondeCredito(CreditoDe(tipo));
    if (m_ui->TxtSerie->isEnabled())
        m_ui->TxtSerie->clear();
    if (!m_abriendo)
        EnviaTecla(u"TAB"_s);
}

Salida FrmDetAgePer::AlDejarFecha() {
    const QString fecha = m_ui->MkeFecEmis->text();
    if (!m_ui->MkeFecEmis->EstaCompleto())
        return Salida::Libre;
    const VeredictoComprobante veredicto = ValidaFecha(fecha, m_entorno.declarado, m_entorno.reloj.Hoy());
    if (!veredicto) {
        m_entorno.avisos.Muestra(veredicto.Motivo());
        return veredicto.ElCampo() ? Salida::Retenida : Salida::Libre;
    }
    IniciaIgv();
    CalculaMontos();
    return Salida::Libre;
}

void FrmDetAgePer::IniciaIgv() {
    m_periodoEmision = Periodo::DeFecha(m_ui->MkeFecEmis->text()).value_or(Periodo());
    m_tasaIgv = IniIgv(m_entorno.base, u"010101"_s, u"998"_s, m_periodoEmision);
}

void FrmDetAgePer::CalculaMontos() {
    const FilaTasa fila = m_tasa.Calcular(m_ui->PreguntasDeTasa->Lee(), m_periodoEmision);
    m_ui->TxtFactor->setText(TextoFactor(fila.factor));
    m_ui->TxtTasa->setText(fila.tasa);
    const QString escrito = m_ui->TxtMtoBase->text();
    const QString monto = LimitaMonto(escrito);
    if (monto != escrito)
        m_ui->TxtMtoBase->setText(monto); // comes back here
    else
        m_ui->TxtPercepcion->setText(Percepcion(monto, fila));
}

void FrmDetAgePer::LigaGrilla() {
    Base& base = m_entorno.base;
    if (m_ui->PreguntaDeContado->Tipo().isEmpty())
        m_pagos.Consulta(base, PagosTrabajo::SqlDeComprobante(Clave()));
    else
        m_pagos.Consulta(base, PagosTrabajo::SqlDeNinguno());
    m_ui->lblNumTrab->setText(u"   Registros      "_s + QString::number(m_pagos.rowCount()));
}

void FrmDetAgePer::NuevoPago() {
    RelojDeArena reloj;
    if (!Pasa(Valida()))
        return;
    if (EsNuevo() && ComprobantesTrabajo(m_entorno.base).Existe(Clave())) {
        Rechaza(m_entorno.avisos, kYaRegistrada);
        return;
    }
    reloj.Suelta();
    AbrePago(ModoDetalle::Nuevo, {});
    FijaClase();
}

void FrmDetAgePer::ModificarPago() {
    RelojDeArena reloj;
    if (m_ui->GrdDetPer->Fila() < 0 || !Pasa(Valida()))
        return;
    reloj.Suelta();
    AbrePago(m_modo == ModoDetalle::Ver ? m_modo : ModoDetalle::Modificar, Seleccionado());
}

void FrmDetAgePer::AbrePago(ModoDetalle modo, const ComprobanteDePago& pago) {
    ComprobanteDePago deEste = pago;
    deEste.clave.comprobante = Clave();
    const QString lblTipo = LblTipo(m_entorno.declarado, m_entorno.primerIgv, m_ui->PreguntasDeTasa->Lee().cpFact);
    frmPerDet dialogo(m_entorno, modo, deEste, lblTipo, this);
    connect(&dialogo, &frmPerDet::Guardado, this, &FrmDetAgePer::Deshabilita_Percepcion);
    AbreModal(dialogo);
}

/// A voucher with a payment voucher keeps its key and the answers that decided which types were offered.
void FrmDetAgePer::Deshabilita_Percepcion() {
    m_ui->TxtSerie->setEnabled(false);
    m_ui->TxtNumero->setEnabled(false);
    m_ui->PreguntasDeTasa->FijaCredito();
}

/// It can no longer become a cash sale. Wanted: also when no payment voucher was entered, since its dialog
/// opened for this kind.
void FrmDetAgePer::FijaClase() {
    m_ui->PreguntaDeContado->Bloquea();
    m_ui->PreguntasDeTasa->FijaMedioDePago();
}

void FrmDetAgePer::EliminarPago() {
    const RelojDeArena reloj;
    if (m_ui->GrdDetPer->Fila() < 0 || !ConfirmaEliminacion(m_entorno.avisos))
        return;
    PagosTrabajo(m_entorno.base).Borra(Seleccionado().clave);
    LigaGrilla();
    m_ui->GrdDetPer->PonFila(0);
}

void FrmDetAgePer::RecuperaPago() {
    if (m_modo == ModoDetalle::Ver)
        return;
    const UltimoBorrado::Vuelta vuelta = UltimoBorrado(m_entorno.base).DevuelveEn(UltimoBorrado::Clase::Pago, Clave());
    if (vuelta.motivo)
        m_entorno.avisos.Muestra(*vuelta.motivo);
    if (!vuelta.hecha)
        return;
    const int fila = m_ui->GrdDetPer->Fila();
    LigaGrilla();
    m_ui->GrdDetPer->PonFila(fila);
}

bool FrmDetAgePer::Acepta() {
    const RelojDeArena reloj;
    if (!Pasa(Valida()))
        return false;
    if (m_ui->PreguntaDeContado->EsOrdinario() && SinPagos()) {
        Rechaza(m_entorno.avisos, u"Ingrese al menos un comprobante de pago"_s);
        return false;
    }
    ComprobantesTrabajo comprobantes(m_entorno.base);
    const DatosComprobante datos = Datos();
    const FilaTasa fila = m_tasa.Calcular(datos.respuestas, m_periodoEmision);
    const CamposComprobante campos = CamposDe(datos, m_ui->TxtPercepcion->text(), fila.tasa);
    if (!EsNuevo()) {
        comprobantes.Modifica(Clave(), campos);
    } else if (comprobantes.Existe(Clave())) {
        Rechaza(m_entorno.avisos, kYaRegistrada);
        return false;
    } else {
        comprobantes.Agrega(Clave(), campos);
    }
    if (m_ui->PreguntaDeContado->EsOrdinario())
        AvisaSoloNotasDeCredito();
    return true;
}

/// Said after the voucher was stored, which it stays: wanted. The first test compares the amount with "07", so that it
/// almost never holds and a single credit note is found by the second: kept as it is.
void FrmDetAgePer::AvisaSoloNotasDeCredito() {
    const bool montoEs07 = m_pagos.rowCount() == 1 && m_pagos.Texto(0, Campo(ColumnaPago::Monto)) == u"07";
    if (montoEs07 || (!SinPagos() && PagosTrabajo(m_entorno.base).SoloNotasDeCredito(Clave())))
        m_entorno.avisos.Muestra(
            {Icono::Informacion, u"Debe ingresar algún comprobante de pago diferente a nota de crédito."_s, {}});
}

void FrmDetAgePer::Salir() {
    if (m_modo == ModoDetalle::Ver || !m_hayCambios) {
        Termina();
        return;
    }
    const bool sinPagos = SinPagos();
    if (sinPagos && m_ui->PreguntaDeContado->Tipo().isEmpty() && !PreguntaSinPagos())
        return;
    ComprobantesTrabajo comprobantes(m_entorno.base);
    const bool yaEsta = EsNuevo() && sinPagos && comprobantes.Existe(Clave());
    if ((!sinPagos || !m_ui->PreguntaDeContado->Tipo().isEmpty()) && !yaEsta && PreguntaGuardar(m_entorno.avisos))
        (void)Acepta(); // it closes even when that is refused: wanted, the question is about leaving
    if (m_ui->PreguntaDeContado->Tipo().isEmpty())
        comprobantes.BarreAlSalir(Clave(), EsNuevo(), sinPagos);
    Termina();
}

/// An ordinary voucher without payment vouchers goes away; false when the person stays. A new one whose key another
/// voucher has already isn't asked about.
bool FrmDetAgePer::PreguntaSinPagos() {
    ComprobantesTrabajo comprobantes(m_entorno.base);
    if (EsNuevo() && comprobantes.Existe(Clave()))
        return true;
    if (!Confirma(m_entorno.avisos, u"No hay comprobantes. Si sale se borrará este registro. ¿Esta Seguro?"_s))
        return false;
    comprobantes.Borra(Clave());
    return true;
}

VeredictoComprobante FrmDetAgePer::Valida() const {
    return ValidaGrabar(Datos(), m_entorno.declarado, m_entorno.reloj.Hoy());
}

bool FrmDetAgePer::Pasa(const VeredictoComprobante& veredicto) {
    return Atiende(m_entorno.avisos, veredicto, [this](CampoComprobante campo) -> QWidget& { return Control(campo); });
}

QWidget& FrmDetAgePer::Control(CampoComprobante campo) const {
    switch (campo) {
    case CampoComprobante::Tipo: return m_ui->PreguntaDeContado->CampoTipo();
    case CampoComprobante::Serie: return *m_ui->TxtSerie;
    case CampoComprobante::Numero: return *m_ui->TxtNumero;
    case CampoComprobante::Fecha: return *m_ui->MkeFecEmis;
    case CampoComprobante::Monto: return *m_ui->TxtMtoBase;
    case CampoComprobante::Listado: break;
    }
    return m_ui->PreguntasDeTasa->CampoListado();
}

ClaveComprobante FrmDetAgePer::Clave() const {
    return {.cliente = m_cliente,
            .serie = m_ui->TxtSerie->text(),
            .numero = m_ui->TxtNumero->text(),
            .tipCp = m_ui->PreguntaDeContado->Tipo()};
}

DatosComprobante FrmDetAgePer::Datos() const {
    return {.contado = m_ui->PreguntaDeContado->EsContado(),
            .tipoCp = m_ui->PreguntaDeContado->Tipo(),
            .serie = m_ui->TxtSerie->text(),
            .numero = m_ui->TxtNumero->text(),
            .fecha = m_ui->MkeFecEmis->text(),
            .monto = m_ui->TxtMtoBase->text(),
            .exigeListado = m_ui->PreguntasDeTasa->ExigeListado(),
            .respuestas = m_ui->PreguntasDeTasa->Lee()};
}

ComprobanteDePago FrmDetAgePer::Seleccionado() const {
    using enum ColumnaPago;
    const auto texto = [this](ColumnaPago columna) { return m_pagos.Texto(m_ui->GrdDetPer->Fila(), Campo(columna)); };
    return {.clave = {.comprobante = Clave(), .tipo = texto(Tipo), .serie = texto(Serie), .numero = texto(Numero)},
            .fecha = texto(Fecha),
            .monto = MontoEscrito(texto(Monto))};
}

} // namespace xa518
