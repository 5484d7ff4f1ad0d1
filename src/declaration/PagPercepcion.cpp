#include "declaration/PagPercepcion.h"

#include "ui_PagPercepcion.h"

#include "declaration/Declaration.h"
#include "form518/ClientName.h"
#include "form518/LastDelete.h"
#include "form518/WorkTables.h"
#include "platform/Notices.h"
#include "widgets/BoxLabel.h"

#include <QShortcut>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int Campo(ColumnaCliente columna) {
    return static_cast<int>(columna);
}

/// The row of a person who was typed in has one blank for a name, as it must; a row of blanks would show.
QString NombreEnFila(const QStringList& fila) {
    const auto texto = [&fila](ColumnaCliente columna) { return fila.value(Campo(columna)); };
    using enum ColumnaCliente;
    return NombreCliente(texto(DesRazon), texto(DesApellidoP), texto(DesApellidoM), texto(DesNombres));
}

QList<ColumnaDeGrilla> Columnas() {
    const QString monto = u"###,###,###,##0.#0"_s;
    return {{u"Tip. Doc."_s, Campo(ColumnaCliente::Doc), false, {}},
            {u"Número Doc."_s, Campo(ColumnaCliente::NumDocPer), false, {}},
            {u"Nombre o Razón Social"_s, Campo(ColumnaCliente::DesRazon), false, {}, NombreEnFila},
            {u"Monto Cobrado"_s, Campo(ColumnaCliente::MtoBaseP), true, monto},
            {u"Percepción"_s, Campo(ColumnaCliente::MtoImpP), true, monto}};
}

} // namespace

PagPercepcion::PagPercepcion(QWidget* padre)
    : QWidget(padre), m_ui(std::make_unique<Ui::PagPercepcion>()), m_clientes(Columnas()) {
    m_ui->setupUi(this);
    m_ui->GrdDatos->setModel(&m_clientes);
    for (QLabel* rotulo : {m_ui->LblCasilla_501, m_ui->LblCasilla_502, m_ui->LblCasilla_503})
        ComoNumeroDeCasilla(*rotulo);
    constexpr int kCifras = 18;
    for (QLineEdit* total : {m_ui->TxtBase, m_ui->TxtPercepcion})
        total->setMinimumWidth(fontMetrics().horizontalAdvance(QString(kCifras, u'0')));
    const QList<QPushButton*> botones = {m_ui->CmdOpciones_0, m_ui->CmdOpciones_1, m_ui->CmdOpciones_2,
                                         m_ui->CmdOpciones_3};
    for (int indice = 0; indice < botones.size(); ++indice)
        connect(botones[indice], &QPushButton::clicked, this, [this, indice] { Q_EMIT Opcion(indice); });
    connect(m_ui->GrdDatos, &GrillaDeLectura::FilaActivada, this, [this] { Q_EMIT Opcion(1); });
    auto* deshace = new QShortcut(QKeySequence::Undo, this);
    deshace->setContext(Qt::WidgetWithChildrenShortcut);
    connect(deshace, &QShortcut::activated, this, [this] { Q_EMIT Opcion(4); });
}

PagPercepcion::~PagPercepcion() = default;

void PagPercepcion::MuestraEnviada() {
    for (QPushButton* boton : {m_ui->CmdOpciones_0, m_ui->CmdOpciones_2, m_ui->CmdOpciones_3})
        boton->hide();
    m_ui->CmdOpciones_1->setText(u"&Detalle"_s);
}

void PagPercepcion::Refresca(Base& base) {
    const int fila = Fila();
    m_clientes.Consulta(base, SqlClientes());
    m_ui->GrdDatos->PonFila(fila);
    m_ui->GrdDatos->AjustaColumnas(Campo(ColumnaCliente::DesRazon));
}

void PagPercepcion::Suelta(Base& base) {
    // Twice is wanted: the family's data source lets go of its table only at the second turn.
    m_clientes.Consulta(base, u"Select * from Param Where 1=2"_s);
    m_clientes.Consulta(base, u"Select * from Param Where 1=2"_s);
}

void PagPercepcion::MuestraTotales(const Declaracion& declaracion) {
    m_ui->TxtBase->setText(TextoDeTotal(declaracion.base));
    m_ui->TxtPercepcion->setText(TextoDeTotal(declaracion.percepcion));
    MuestraCuenta(declaracion.clientes);
}

void PagPercepcion::MuestraCuenta(int clientes) {
    m_ui->lblNumTrab_0->setText(QString::number(clientes) + u"   Registros      "_s);
}

int PagPercepcion::Fila() const {
    return m_ui->GrdDatos->Fila();
}

void PagPercepcion::PonPrimeraFila() {
    m_ui->GrdDatos->PonFila(0);
}

std::optional<FilaCliente> PagPercepcion::Elegido() const {
    const int fila = Fila();
    if (fila < 0)
        return std::nullopt;
    const auto texto = [&](ColumnaCliente columna) { return m_clientes.Texto(fila, Campo(columna)); };
    using enum ColumnaCliente;
    return FilaCliente{.tipDocPer = CodigoDocumento::De(texto(TipDocPer)),
                       .numDocPer = texto(NumDocPer),
                       .desRazon = texto(DesRazon),
                       .apellidoP = texto(DesApellidoP),
                       .apellidoM = texto(DesApellidoM),
                       .nombres = texto(DesNombres)};
}

bool PagPercepcion::EliminaElegido(Base& base, Avisos& avisos) const {
    const std::optional<FilaCliente> cliente = Elegido();
    if (!cliente)
        return false;
    const Mensaje pregunta{Icono::Pregunta, u"¿Confirma que va a eliminar la información?"_s, {}};
    if (avisos.Pregunta(pregunta, Respuesta::No) == Respuesta::No)
        return false;
    TablasTrabajo(base).EliminaCliente({.tipoDoc = cliente->tipDocPer, .numero = cliente->numDocPer});
    return true;
}

bool PagPercepcion::RecuperaEliminado(Base& base, Avisos& avisos) {
    const UltimoBorrado::Vuelta vuelta = UltimoBorrado(base).DevuelveEn(UltimoBorrado::Clase::Cliente);
    if (vuelta.motivo)
        avisos.Muestra(*vuelta.motivo);
    return vuelta.hecha;
}

} // namespace xa518
