#include "app/FormaSeleccion.h"

#include "app/DeclarationLists.h"
#include "app/RowsModel.h"
#include "data/Process.h"
#include "platform/Application.h"
#include "platform/HourGlass.h"
#include "platform/Notices.h"
#include "platform/StatusBar.h"
#include "values/Text.h"

#include "ui_FormaSeleccion.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScopeGuard>
#include <QtDebug>

namespace xa518 {

using namespace Qt::StringLiterals;

FormaSeleccion::FormaSeleccion(const Entorno& entorno, const QStringList& columnas, const QString& marco,
                               QWidget* padre)
    : Forma(padre)
    , m_ui(std::make_unique<Ui::FormaSeleccion>())
    , m_entorno(entorno)
    , m_datos(new ModeloFilas(columnas, this)) {
    m_ui->setupUi(this);
    m_ui->Frame1->setTitle(marco);
    m_datos->setObjectName(u"DtaNew"_s);
    PreparaGrilla();
    Conecta();
    Prepara({m_ui->CmdOpciones_1});
}

FormaSeleccion::~FormaSeleccion() = default;

void FormaSeleccion::PreparaGrilla() {
    QTableView& grilla = *m_ui->grdContrib;
    grilla.setModel(m_datos);
    grilla.installEventFilter(this);
    QHeaderView& cabecera = *grilla.horizontalHeader();
    cabecera.setSectionResizeMode(QHeaderView::ResizeToContents);
    cabecera.setSectionResizeMode(ColumnaDeLista::Nombre, QHeaderView::Stretch);
    cabecera.setHighlightSections(false);
    cabecera.setSectionsClickable(true);
}

void FormaSeleccion::Conecta() {
    connect(m_ui->CmdOpciones_0, &QPushButton::clicked, this, Protegido([this] { Actua(); }));
    connect(m_ui->CmdOpciones_1, &QPushButton::clicked, this, [this] { Salir(); });
    connect(m_ui->grdContrib, &QTableView::doubleClicked, this, Protegido([this] { Actua(); }));
    connect(m_ui->grdContrib->horizontalHeader(), &QHeaderView::sectionClicked, this,
            Protegido([this](int columna) { PulsaCabecera(columna); }));
    connect(m_ui->grdContrib->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this] { MuestraFila(); });
}

void FormaSeleccion::Presenta(const Textos& textos) {
    setWindowTitle(textos.titulo);
    m_ui->CmdOpciones_0->setText(textos.accion);
    m_ui->Label1->setText(textos.etiqueta);
}

void FormaSeleccion::Refresca(int fila) {
    m_datos->Lee(*m_entorno.proceso.baseDatos, m_consulta);
    m_ui->grdContrib->selectRow(fila < m_datos->Filas() ? fila : 0);
    MuestraFila();
}

int FormaSeleccion::FilaActual() const {
    return m_ui->grdContrib->currentIndex().row();
}

/// The way out of the form over this one empties the status bar: the row is told again each time that it is shown.
void FormaSeleccion::MuestraFila() {
    const DeclaracionElegida fila = Elegida(FilaActual());
    m_entorno.barra.PonRuc(fila.ruc);
    m_entorno.barra.PonNombre(fila.nombre);
    m_entorno.barra.PonPeriodo(fila.periodo.isEmpty() ? QString() : fila.periodo.left(2) + u'/' + fila.periodo.mid(2));
}

DeclaracionElegida FormaSeleccion::Elegida(int fila) const {
    return {m_datos->Celda(fila, ColumnaDeLista::Ruc),
            m_datos->Celda(fila, ColumnaDeLista::Nombre),
            m_datos->Celda(fila, ColumnaDeLista::Periodo),
            {},
            {}};
}

ClaveDeclaracion FormaSeleccion::Clave(int fila) const {
    const DeclaracionElegida elegida = Elegida(fila);
    return {elegida.ruc, PeriodoDePantalla(elegida.periodo), m_entorno.proceso.numFormulario, false, {}};
}

/// An error of the engine ends the command without a word, with the list as it was: wanted.
void FormaSeleccion::Actua() {
    RelojDeArena reloj;
    if (m_datos->Filas() == 0)
        return;
    try {
        TomaFila(FilaActual());
        if (m_entorno.proceso.opcion == kModificar)
            Abre(reloj);
        else if (m_entorno.proceso.opcion == kEliminar)
            Elimina();
    } catch (const ErrorBase& falla) {
        qWarning().noquote() << falla.Texto();
    }
}

/// Hidden past the dialog's own hiding, which would end this form's wait for its end.
void FormaSeleccion::Abre(RelojDeArena& reloj) {
    if (!m_entorno.dialogos.declaracion)
        return;
    const int fila = FilaActual();
    const QPoint sitio = pos();
    QWidget::setVisible(false);
    const auto vuelve = qScopeGuard([this, sitio] {
        move(sitio);
        show();
    });
    std::unique_ptr<QDialog> forma = m_entorno.dialogos.declaracion(m_entorno.barra, Elegida(fila), parentWidget());
    reloj.Suelta();
    AbreModal(*forma);
    forma.reset();
    Refresca(fila);
}

void FormaSeleccion::Elimina() {
    const Mensaje pregunta{Icono::Pregunta, u"¿Confirma que va a eliminar la declaración seleccionada?"_s,
                           windowTitle()};
    if (m_entorno.avisos.Pregunta(pregunta, Respuesta::No) == Respuesta::No)
        return;
    EliminaDeclaracion(*m_entorno.proceso.baseDatos, Clave(FilaActual()));
    Refresca();
}

void FormaSeleccion::Salir() {
    m_datos->Vacia();
    m_entorno.barra.Limpia(m_entorno.proceso.numFormulario);
    Termina();
}

bool FormaSeleccion::eventFilter(QObject* objeto, QEvent* evento) {
    if (objeto != m_ui->grdContrib || evento->type() != QEvent::KeyPress)
        return Forma::eventFilter(objeto, evento);
    const auto& tecla = *static_cast<QKeyEvent*>(evento);
    if (tecla.key() != Qt::Key_Return && tecla.key() != Qt::Key_Enter)
        return !DejaPasar(tecla);
    Protegido([this] { Actua(); })();
    return true;
}

} // namespace xa518
