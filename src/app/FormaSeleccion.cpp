#include "app/FormaSeleccion.h"

#include "app/DeclarationLists.h"
#include "declaration/TaxPeriod.h"
#include "family/Presence.h"
#include "family/Process.h"
#include "family/StoredDeclaration.h"
#include "platform/Notices.h"
#include "values/Text.h"
#include "widgets/Application.h"
#include "widgets/HourGlass.h"
#include "widgets/ReadGrid.h"
#include "widgets/StatusBar.h"

#include "ui_FormaSeleccion.h"

#include <QScopeGuard>
#include <QtDebug>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

QList<ColumnaDeGrilla> ColumnasDe(const QStringList& titulos) {
    QList<ColumnaDeGrilla> columnas;
    for (const QString& titulo : titulos)
        columnas.append({titulo, static_cast<int>(columnas.size()), false, {}});
    return columnas;
}

/// An error of the engine ends the command without a word, with the list as it was: wanted, the user may just press
/// again.
template <typename Orden>
void SinPalabras(const Orden& orden) {
    try {
        orden();
    } catch (const ErrorBase& falla) {
        qWarning().noquote() << falla.Texto();
    }
}

} // namespace

FormaSeleccion::FormaSeleccion(const Entorno& entorno, OpcionDeLista opcion, const QStringList& columnas,
                               const QString& marco, QWidget* padre)
    : Forma(padre)
    , m_ui(std::make_unique<Ui::FormaSeleccion>())
    , m_entorno(entorno)
    , m_opcion(opcion)
    , m_datos(new ModeloDeConsulta(ColumnasDe(columnas), this)) {
    m_ui->setupUi(this);
    m_ui->Frame1->setTitle(marco);
    m_datos->setObjectName(u"DtaNew"_s);
    m_ui->grdContrib->setModel(m_datos);
    Conecta();
    Prepara({m_ui->CmdOpciones_1});
}

FormaSeleccion::~FormaSeleccion() = default;

void FormaSeleccion::Conecta() {
    connect(m_ui->CmdOpciones_0, &QPushButton::clicked, this, Protegido([this] { Actua(); }));
    connect(m_ui->CmdOpciones_1, &QPushButton::clicked, this, [this] { Salir(); });
    connect(m_ui->grdContrib, &GrillaDeLectura::FilaActivada, this, Protegido([this] { Actua(); }));
    connect(m_ui->grdContrib, &GrillaDeLectura::FilaCambiada, this, Protegido([this](int fila) { MuestraFila(fila); }));
}

GrillaDeLectura& FormaSeleccion::Grilla() const {
    return *m_ui->grdContrib;
}

QString FormaSeleccion::Celda(int fila, int columna) const {
    return Recorta(m_datos->Texto(fila, columna)).toString();
}

void FormaSeleccion::Presenta(const Textos& textos) {
    setWindowTitle(textos.titulo);
    m_ui->CmdOpciones_0->setText(textos.accion);
    m_ui->Label1->setText(textos.etiqueta);
}

void FormaSeleccion::Refresca(int fila) {
    m_datos->Consulta(*m_entorno.proceso.baseDatos, m_consulta);
    Grilla().AjustaColumnas(ColumnaDeLista::Nombre);
    Grilla().PonFila(fila);
    if (m_datos->rowCount() == 0)
        m_entorno.barra.Limpia(m_entorno.proceso.numFormulario);
}

void FormaSeleccion::MuestraFila(int fila) {
    const DeclaracionElegida elegida = Elegida(fila);
    m_entorno.barra.PonRuc(elegida.clave.ruc.Texto());
    m_entorno.barra.PonNombre(elegida.nombre);
    m_entorno.barra.PonPeriodo(elegida.clave.periodo.EnPantalla());
}

DeclaracionElegida FormaSeleccion::Elegida(int fila) const {
    return {.clave = {.ruc = Ruc(Celda(fila, ColumnaDeLista::Ruc)),
                      .periodo = Periodo::DePantalla(Celda(fila, ColumnaDeLista::Periodo)).value_or(Periodo()),
                      .formulario = m_entorno.proceso.numFormulario},
            .nombre = Celda(fila, ColumnaDeLista::Nombre)};
}

void FormaSeleccion::Actua() {
    const RelojDeArena reloj;
    if (m_datos->rowCount() == 0)
        return;
    SinPalabras([this] {
        if (!SigueAhi(Grilla().Fila()))
            return;
        if (m_opcion == OpcionDeLista::Modificar)
            Abre();
        else
            Elimina();
    });
}

/// An empty declaration would open in its place, and its save would stand beside the copy that was sent.
bool FormaSeleccion::SigueAhi(int fila) {
    if (ExisteDeclaracion(*m_entorno.proceso.baseDatos, Elegida(fila).clave))
        return true;
    Refresca(fila);
    m_entorno.avisos.Muestra({Icono::Exclamacion,
                              u"La declaración seleccionada ya no está aquí: fue enviada o eliminada mientras se"
                              " mostraba la lista. La lista se ha actualizado."_s,
                              windowTitle()});
    return false;
}

void FormaSeleccion::Abre() {
    if (!m_entorno.dialogos.declaracion)
        return;
    m_entorno.dialogos.declaracion(m_entorno.barra, Pedida());
}

AperturaPedida FormaSeleccion::Pedida() {
    const int fila = Grilla().Fila();
    return {.ventana = *this,
            .padre = parentWidget(),
            .elegida = Elegida(fila),
            .muestra = [this, fila](QDialog& forma) { SinPalabras([&] { Muestra(forma, fila); }); },
            .alFallar = [](const std::exception_ptr& falla) { SinPalabras([&] { std::rethrow_exception(falla); }); }};
}

/// Hidden past the dialog's own hiding, which would end this form's wait for its end.
void FormaSeleccion::Muestra(QDialog& forma, int fila) {
    const QPoint sitio = pos();
    QWidget::setVisible(false); // NOLINT(bugprone-parent-virtual-call)
    const auto vuelve = qScopeGuard([this, sitio] {
        move(sitio);
        show();
    });
    AbreModal(forma);
    Refresca(fila);
}

void FormaSeleccion::Elimina() {
    const Mensaje pregunta{Icono::Pregunta, u"¿Confirma que va a eliminar la declaración seleccionada?"_s,
                           windowTitle()};
    if (m_entorno.avisos.Pregunta(pregunta, Respuesta::No) == Respuesta::No)
        return;
    if (m_entorno.dialogos.retoma)
        m_entorno.dialogos.retoma(m_entorno.barra, Pedida(), [this] { SinPalabras([this] { EliminaDeVerdad(); }); });
    else
        EliminaDeVerdad();
}

void FormaSeleccion::EliminaDeVerdad() {
    const int fila = Grilla().Fila();
    if (!SigueAhi(fila)) // gone while the question stood
        return;
    const ClaveDeclaracion clave = Elegida(fila).clave;
    const Proceso& proceso = m_entorno.proceso;
    try {
        const Presencia presencia(*proceso.baseDatos, clave);
        EliminaDeclaracion(*proceso.baseDatos, FormularioDe(proceso.formularios, clave.formulario), clave,
                           proceso.SuFirma());
    } catch (const TrabajoAjeno& ajeno) {
        m_entorno.avisos.Muestra({Icono::Exclamacion, ajeno.Texto(), windowTitle()});
    }
    Refresca();
}

void FormaSeleccion::Salir() {
    m_entorno.barra.Limpia(m_entorno.proceso.numFormulario);
    Termina();
}

} // namespace xa518
