#include "detail/FrmDetAgePer.h"
#include "detail/OptionPair.h"
#include "detail/VoucherTypes.h"
#include "detail/ui_FrmDetAgePer.h"
#include "family/Process.h"
#include "widgets/HourGlass.h"
#include "widgets/ReadablePalette.h"

#include <QStyledItemDelegate>

// How the voucher's dialog opens: new, on a stored voucher, or as a viewer.

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

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

FrmDetAgePer::FrmDetAgePer(Proceso& proceso, Avisos& avisos, const Comprobante& comprobante, QWidget* padre)
    : Forma(padre)
    , m_ui(std::make_unique<Ui::FrmDetAgePer>())
    , m_proceso(&proceso)
    , m_avisos(&avisos)
    , m_cliente(comprobante.clave.cliente)
    , m_banda(BandaDe(proceso.periodoDeclarado, proceso.fechaPrimerIgv))
    , m_tasa(*proceso.baseDatos, proceso.periodoDeclarado, proceso.fechaPrimerIgv)
    , m_pagos(ColumnasDePagos()) {
    const RelojDeArena reloj;
    m_ui->setupUi(this);
    Prepara({m_ui->CmdOpciones_1});
    PreparaPreguntas();
    PreparaGrilla();
    PreparaCampos();
    PreparaMonto();
    ConectaPreguntas();
    ConectaBotones();
    Abre(comprobante);
}

void FrmDetAgePer::PreparaPreguntas() {
    m_contado = new ParDeOpciones(*m_ui->Label5, *m_ui->OptVentaCont_0, *m_ui->OptVentaCont_1);
    m_cpFact = new ParDeOpciones(*m_ui->Label2, *m_ui->OptCpFact_0, *m_ui->OptCpFact_1);
    m_listado = new ParDeOpciones(*m_ui->Label4, *m_ui->OptListado_0, *m_ui->OptListado_1);
    m_venta = new ParDeOpciones(*m_ui->Label6, *m_ui->OptVenta_0, *m_ui->OptVenta_1);
    m_medPago = new ParDeOpciones(*m_ui->Label3, *m_ui->OptMedPago_0, *m_ui->OptMedPago_1);
}

void FrmDetAgePer::PreparaGrilla() {
    m_ui->GrdDetPer->setModel(&m_pagos);
    const int monto = m_pagos.columnCount() - 1;
    m_ui->GrdDetPer->setItemDelegateForColumn(monto, new CeldaDeMonto(this));
}

void FrmDetAgePer::Abre(const Comprobante& comprobante) {
    IniciaIgv(); // the date isn't there yet: wanted
    const QString tipo = QString::number(m_cliente.tipoDoc);
    LlenaTiposDeDocumento(*m_ui->CmbTipDoc, *m_proceso->baseDatos, tipo);
    m_ui->CmbTipDoc->EligePorValor(tipo);
    m_ui->TxtNumDoc->setText(m_cliente.numero);
    if (!PreguntaPorZona(m_proceso->periodoDeclarado))
        ApagaZona();
    LlenaTiposDeComprobante(*m_ui->CmbTipoCP, TiposDeContado(*m_proceso->baseDatos));
    if (EsNuevo())
        m_contado->Contesta(false);
    else
        MuestraComprobante(comprobante);
    if (!PreguntaPorZona(m_proceso->periodoDeclarado))
        m_venta->Borra();
    if (m_proceso->enviadas)
        DesActiva(); // after the answers, which enable the buttons
    m_abriendo = false;
}

void FrmDetAgePer::ApagaZona() {
    m_ui->Frame4->setEnabled(false);
    m_ui->Label6->setEnabled(false);
    m_venta->Activa(false);
    m_venta->Borra();
}

void FrmDetAgePer::MuestraComprobante(const Comprobante& comprobante) {
    const ClaveComprobante& clave = comprobante.clave;
    m_ui->CmbTipoCP->Elige(clave.tipCp);
    m_ui->TxtSerie->setText(clave.serie);
    m_ui->TxtNumero->setText(clave.numero);
    m_ui->TxtSerie->setEnabled(false);
    m_ui->TxtNumero->setEnabled(false);
    m_contado->Contesta(!clave.tipCp.trimmed().isEmpty());
    m_cpFact->Contesta(comprobante.campos.cpFact);
    m_listado->Contesta(comprobante.campos.listaClie);
    m_venta->Contesta(comprobante.campos.medPago);
    BloqueaRespuestas();
    MuestraCampos(comprobante.campos);
}

/// The answers of a stored voucher can't be changed, only its date and its amount.
void FrmDetAgePer::BloqueaRespuestas() {
    m_ui->Label5->setEnabled(false);
    m_contado->Activa(false);
    ActivaTipoCP(false);
    ActivaCredito(false);
    ActivaListado(false);
    m_ui->FraMedPago->setEnabled(false);
    m_ui->Label3->setEnabled(false);
    m_venta->Activa(false);
}

/// The stored perception shows, over what the amount computes. Wanted: rate and factor show 0 until the date is left.
void FrmDetAgePer::MuestraCampos(const CamposComprobante& campos) {
    m_ui->MkeFecEmis->setText(campos.fecha);
    m_ui->TxtMtoBase->setText(campos.base);
    m_ui->TxtPercepcion->setText(campos.percepcion);
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

} // namespace xa518
