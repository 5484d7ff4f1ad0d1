#include "import/FrmCorreccion.h"

#include "ui_FrmCorreccion.h"

#include "family/Process.h"
#include "import/CorrectedFile.h"
#include "import/CorrectionTexts.h"
#include "import/ImportFile.h"
#include "import/ImportFormat.h"
#include "platform/FileDialogs.h"
#include "platform/Notices.h"
#include "widgets/Application.h"
#include "widgets/HourGlass.h"
#include "widgets/LongTask.h"
#include "widgets/WidgetHelpers.h"

#include <QDir>
#include <QScrollBar>

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

FrmCorreccion::FrmCorreccion(EntornoCorreccion entorno, std::shared_ptr<Correccion> correccion, QWidget* padre)
    : Forma(padre)
    , m_entorno(std::move(entorno))
    , m_correccion(std::move(correccion))
    , m_modelo(*m_correccion, this)
    , m_ui(std::make_unique<Ui::FrmCorreccion>()) {
    m_ui->setupUi(this);
    m_ui->GrdLineas->setModel(&m_modelo);
    Conecta();
    Prepara({m_ui->CmdSalir});
    LlenaFiltro();
    MuestraLineas();
    m_ui->GrdLineas->setFocus();
}

FrmCorreccion::~FrmCorreccion() = default;

void FrmCorreccion::Conecta() {
    connect(m_ui->CmbFiltro, &QComboBox::activated, this, Protegido([this] { MuestraLineas(); }));
    connect(m_ui->GrdLineas->selectionModel(), &QItemSelectionModel::currentChanged, this,
            Protegido([this] { MuestraActual(); }));
    connect(&m_modelo, &QAbstractItemModel::dataChanged, this, Protegido([this] { MuestraActual(); }));
    connect(m_ui->TxtLinea, &QLineEdit::editingFinished, this, Protegido([this] { PonLinea(); }));
    connect(m_ui->CmdSiguiente, &QPushButton::clicked, this, Protegido([this] { Siguiente(); }));
    connect(m_ui->CmdAplicar, &QPushButton::clicked, this, Protegido([this] { Aplicar(); }));
    connect(m_ui->CmdOriginal, &QPushButton::clicked, this, Protegido([this] { VuelveAlOriginal(); }));
    connect(m_ui->CmdGuardar, &QPushButton::clicked, this, Protegido([this] { Guardar(); }));
    connect(m_ui->CmdProbar, &QPushButton::clicked, this, Protegido([this] { Corre(true); }));
    connect(m_ui->CmdImportar, &QPushButton::clicked, this, Protegido([this] { Corre(false); }));
    connect(m_ui->CmdSalir, &QPushButton::clicked, this, Protegido([this] { Salir(); }));
}

/// Only now there is a width to show the fault in.
void FrmCorreccion::AlActivar() {
    if (m_modelo.rowCount() > 0)
        VaA(m_ui->GrdLineas->currentIndex().row());
}

/// All refused lines, those of each fault, those that pass; the one that was chosen stays so while it has lines.
void FrmCorreccion::LlenaFiltro() {
    const FiltroDeLineas elegido = Filtro();
    QComboBox& lista = *m_ui->CmbFiltro;
    lista.clear();
    const auto agrega = [&](const QString& texto, const FiltroDeLineas& filtro) {
        lista.addItem(texto, QVariant::fromValue(filtro));
        if (filtro == elegido)
            lista.setCurrentIndex(lista.count() - 1);
    };
    agrega(TextoDeRechazadas(m_correccion->Cuantas(EstadoDeLinea::Rechazada)), {});
    for (const GrupoDeFalla& grupo : m_correccion->Grupos())
        agrega(TextoDeGrupo(m_correccion->FallaNumero(grupo.falla), m_correccion->Formato(), grupo.lineas),
               {FiltroDeLineas::Clase::DeUnaFalla, grupo.falla});
    if (const int pasan = m_correccion->Cuantas(EstadoDeLinea::Pasa); pasan > 0)
        agrega(TextoDeLasQuePasan(pasan), {FiltroDeLineas::Clase::QuePasan});
}

FiltroDeLineas FrmCorreccion::Filtro() const {
    return m_ui->CmbFiltro->currentData().value<FiltroDeLineas>();
}

void FrmCorreccion::MuestraLineas() {
    const int fila = std::max(0, m_ui->GrdLineas->currentIndex().row());
    m_modelo.Muestra(Filtro());
    const QList<GrupoDeFalla> grupos = m_correccion->Grupos();
    const bool defectuosas = std::any_of(grupos.cbegin(), grupos.cend(), [this](const GrupoDeFalla& grupo) {
        return m_correccion->FallaNumero(grupo.falla).codigo.isEmpty();
    });
    m_ui->GrdLineas->setColumnHidden(m_modelo.columnCount() - 1, !defectuosas);
    m_ui->GrdLineas->AjustaColumnas();
    if (m_modelo.rowCount() > 0)
        VaA(std::min(fila, m_modelo.rowCount() - 1));
    else
        MuestraActual();
}

int FrmCorreccion::Cual() const {
    const QModelIndex celda = m_ui->GrdLineas->currentIndex();
    return celda.isValid() ? m_modelo.Cual(celda.row()) : -1;
}

void FrmCorreccion::VaA(int fila) {
    m_ui->GrdLineas->horizontalScrollBar()->setValue(0); // from where the line begins, as far as that shows the fault
    m_ui->GrdLineas->setCurrentIndex(m_modelo.Falla(fila));
    m_ui->GrdLineas->scrollTo(m_modelo.Falla(fila));
}

void FrmCorreccion::MuestraActual() {
    const int cual = Cual();
    const bool hay = cual >= 0;
    m_ui->LblFalla->setText(hay ? ExplicaLinea(*m_correccion, cual) : u"No hay líneas que mostrar."_s);
    m_ui->TxtLinea->setText(hay ? m_correccion->Texto(cual) : QString());
    m_ui->TxtLinea->setCursorPosition(0);
    m_ui->TxtLinea->setModified(false);
    m_ui->TxtLinea->setReadOnly(!hay || m_correccion->Estado(cual) != EstadoDeLinea::Rechazada);
    MuestraCelda();
    PermiteOrdenes();
}

void FrmCorreccion::MuestraCelda() {
    const int campo = m_ui->GrdLineas->currentIndex().column() - ModeloDeCorreccion::PrimerCampo;
    m_ui->LblForma->setText(Cual() < 0 ? QString() : ExplicaCampo(m_correccion->Formato(), campo));
}

void FrmCorreccion::PermiteOrdenes() {
    const int cual = Cual();
    const bool rechazada = cual >= 0 && m_correccion->Estado(cual) == EstadoDeLinea::Rechazada;
    const int campo = rechazada ? m_correccion->Falla(cual).campo : -1;
    m_ui->CmdSiguiente->setEnabled(m_modelo.rowCount() > 0);
    m_ui->CmdAplicar->setEnabled(campo >= 0 && m_correccion->EstaCorregida(cual, campo));
    m_ui->CmdOriginal->setEnabled(cual >= 0 && (!rechazada || m_correccion->EstaCorregida(cual)));
    const bool quedan = m_correccion->Cuantas(EstadoDeLinea::Importada) < m_correccion->Cuantas();
    const bool corren = m_modelo.rowCount() > 0 || (Filtro() == FiltroDeLineas() && quedan);
    m_ui->CmdProbar->setEnabled(corren);
    m_ui->CmdImportar->setEnabled(corren);
    m_ui->CmdGuardar->setEnabled(quedan || !m_correccion->Original().isEmpty());
}

void FrmCorreccion::Asienta() {
    m_ui->GrdLineas->Asienta();
    PonLinea();
}

void FrmCorreccion::PonLinea() {
    if (!m_ui->TxtLinea->isModified() || Cual() < 0)
        return;
    m_correccion->PonTexto(Cual(), m_ui->TxtLinea->text());
    m_ui->GrdLineas->setColumnHidden(m_modelo.columnCount() - 1, false);
    m_modelo.Refresca();
}

/// The next line that nobody has touched yet, or simply the next one.
void FrmCorreccion::Siguiente() {
    Asienta();
    const int filas = m_modelo.rowCount();
    const int desde = m_ui->GrdLineas->currentIndex().row();
    int hallada = (desde + 1) % filas;
    for (int paso = 1; paso < filas; ++paso) {
        const int fila = (desde + paso) % filas;
        if (!m_correccion->EstaCorregida(m_modelo.Cual(fila))) {
            hallada = fila;
            break;
        }
    }
    VaA(hallada);
    m_ui->GrdLineas->setFocus();
}

void FrmCorreccion::Aplicar() {
    Asienta();
    const int campo = m_correccion->Falla(Cual()).campo;
    const QString valor = m_correccion->Celdas(m_correccion->Texto(Cual())).at(campo);
    const QList<int> otras = m_correccion->ConLaMismaFalla(Cual());
    if (otras.isEmpty())
        return m_ui->LblResultado->setText(u"No hay otra línea con esa falla sin corregir."_s);
    const Mensaje pregunta = PreguntaPorAplicar(valor, campo, m_correccion->Formato(), static_cast<int>(otras.size()));
    if (m_entorno.avisos.Pregunta(pregunta) == Respuesta::No)
        return;
    const RelojDeArena reloj;
    for (const int otra : otras)
        m_correccion->PonCelda({otra, campo}, valor);
    m_modelo.Refresca();
    m_ui->LblResultado->setText(u"Aplicado a otras %1."_s.arg(otras.size()));
}

void FrmCorreccion::VuelveAlOriginal() {
    m_ui->GrdLineas->Asienta();
    const int cual = Cual();
    const bool pasaba = m_correccion->Estado(cual) == EstadoDeLinea::Pasa;
    m_ui->TxtLinea->setModified(false);
    m_correccion->Restaura(cual);
    if (pasaba) {
        LlenaFiltro();
        MuestraLineas();
    } else {
        m_modelo.Refresca();
    }
}

void FrmCorreccion::Corre(bool prueba) {
    Asienta();
    CorreTarea(
        *this, {.titulo = prueba ? u"Probando las líneas"_s : u"Importando las líneas"_s},
        [aparte = ProcesoAparte(m_entorno.proceso), clave = m_entorno.clave, correccion = m_correccion,
         lineas = m_correccion->PorCorrer(Filtro()), prueba](Avance& avance) {
            Proceso proceso = aparte.Abre();
            return CorreCorregidas(proceso, clave, *correccion, lineas, prueba, avance);
        },
        [this, prueba](const DesenlaceDeCorreccion& desenlace) { AlTerminar(desenlace, prueba); });
}

void FrmCorreccion::AlTerminar(const DesenlaceDeCorreccion& desenlace, bool prueba) {
    m_correccion->Anota(desenlace.veredictos, prueba);
    LlenaFiltro();
    MuestraLineas();
    m_ui->LblResultado->setText(ResumeDesenlace(desenlace, prueba));
    const ResultadoImportacion& resultado = desenlace.resultado;
    for (const QString& perdido : resultado.noConservado)
        m_entorno.avisos.Muestra({Icono::Exclamacion, perdido, {}});
    if (resultado.falla)
        AnotaDetalle(*resultado.falla);
    if (resultado.fin == FinImportacion::Fallida || resultado.fin == FinImportacion::Rechazada)
        m_entorno.avisos.Muestra(*resultado.mensaje);
    if (!prueba && desenlace.corrio && m_entorno.alImportar)
        m_entorno.alImportar(*this, resultado);
}

void FrmCorreccion::Guardar() {
    Asienta();
    const QString carpeta = m_entorno.archivos.PideCarpeta(u"Guardar como archivo"_s, m_entorno.carpeta);
    if (carpeta.isEmpty())
        return;
    const QString nombre = NombreDeArchivo(m_entorno.clave, m_correccion->Formato());
    const QStringList iguales = QDir(carpeta).entryList({nombre}, QDir::Files);
    const QString ruta = QDir(carpeta).filePath(iguales.isEmpty() ? nombre : iguales.front());
    if (!iguales.isEmpty() &&
        m_entorno.avisos.Pregunta(PreguntaPorReemplazar(ruta, *m_correccion), Respuesta::No) == Respuesta::No)
        return;
    LanzaTarea(
        *this, {.titulo = u"Guardando las líneas"_s, .seDetiene = false},
        [correccion = m_correccion, ruta](Avance& /*avance*/) { GuardaCorregido(*correccion, ruta); },
        [this, ruta] {
            m_correccion->PonGuardadas();
            m_ui->LblResultado->setText(u"Guardado: "_s + QDir::toNativeSeparators(ruta));
        });
}

void FrmCorreccion::Salir() {
    Asienta();
    const int perdidas = m_correccion->PorPerder();
    if (perdidas > 0) {
        if (m_entorno.avisos.Pregunta(PreguntaPorPerder(perdidas), Respuesta::No) == Respuesta::No)
            return m_ui->GrdLineas->setFocus(); // the cell that was typed in has gone
        m_correccion->RestauraTodas();
    }
    Termina();
}

} // namespace xa518
