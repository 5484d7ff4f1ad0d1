#include "app/FrmConsultas.h"
#include "app/FrmContAbrir.h"
#include "app/FrmContAbrirE.h"
#include "app/MDIFrm.h"
#include "app/ModuleForms.h"
#include "app/frmAcercade.h"
#include "declaration/Frm518.h"
#include "declaration/FrmConsist.h"
#include "detail/FrmAgePer.h"
#include "detail/FrmDetAgePer.h"
#include "detail/frmPerDet.h"
#include "end_to_end/SampleModule.h"
#include "family/FrmAyuda.h"
#include "form518/Form0518.h"
#include "import/Formats.h"
#include "import/FrmCorreccion.h"
#include "import/RunMessages.h"
#include "import/frmTransferencia.h"
#include "launcher/FrmConsola.h"
#include "launcher/FrmDeclarante.h"
#include "printouts/FrmCambios.h"
#include "printouts/frmImprimir.h"
#include "reports/ShowReport.h"
#include "reports/frmImpresora.h"
#include "reports/frmImpxPag.h"
#include "reports/frmPreview.h"
#include "support/FileDialogScript.h"
#include "support/FormDriver.h"
#include "values/Progress.h"
#include "widgets/StatusBar.h"

#include <QAbstractScrollArea>
#include <QButtonGroup>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QSpinBox>
#include <QTabBar>
#include <QTabWidget>

namespace {

/// What is looked at of a form; the text tells which form, in which state.
using Mirada = std::function<void(QWidget& forma)>;

class FormsLayoutTest : public ModuloDeMuestra, public testing::WithParamInterface<int> {
  protected:
    void SetUp() override {
        ModuloDeMuestra::SetUp();
        QFont letra = m_letra;
        letra.setPointSizeF(m_letra.pointSizeF() * GetParam() / 100);
        QApplication::setFont(letra);
    }
    void TearDown() override {
        QApplication::setFont(m_letra);
        QDir::setCurrent(QDir::rootPath());
    }

    /// Opens each form of both programs, and each of its pages.
    void EnCadaForma(const Mirada& mira) {
        MDIFrm principal(proceso, avisos, perfil, FormasDelModulo(proceso, avisos, archivos, perfil));
        ASSERT_TRUE(principal.Carga());
        Ve(principal, u"main"_s, mira);
        for (const OpcionDeLista opcion : {OpcionDeLista::Modificar, OpcionDeLista::Eliminar}) {
            Ve(FrmContAbrir(lugar, opcion), u"registered"_s, mira);
            Ve(FrmContAbrirE(lugar, opcion), u"sent"_s, mira);
        }
        EnElDetalle(mira);
        EnLosInformes(mira);
        Ve(FrmConsultas(*proceso.baseDatos, u"B"), u"banks"_s, mira);
        Ve(frmAcercade(), u"about"_s, mira);
        Ve(FrmAyuda(m_ayuda), u"help"_s, mira);
        Ve(FrmConsola(entorno, avisos, {}), u"launcher"_s, mira);
        for (const QString& ruc : {QString(), kRuc})
            Ve(FrmDeclarante(avisos, {Ruc(ruc), {}, {}}, {u"CONTADOR"_s}, {}, nullptr), u"declarant"_s, mira);
    }

  private:
    void EnLaDeclaracion(const std::optional<DeclaracionElegida>& elegida, const QString& nombre, const Mirada& mira) {
        QWidget detras;
        TomaTablas(detras, proceso, elegida, [&](const TablasTomadas& tablas) {
            Ve(Frm518({proceso, avisos, barra}, tablas, elegida), nombre, mira);
        });
        EsperaTrabajos();
    }
    void EnElDetalle(const Mirada& mira) {
        const DeclaracionElegida registrada{
            .clave = {.ruc = Ruc(kRuc), .periodo = Periodo(2026, 10), .formulario = kNumFormulario},
            .nombre = u"DEMO"_s};
        DeclaracionElegida enviada = registrada;
        enviada.clave.periodo = Periodo(2026, 9);
        enviada.clave.enviada = true;
        enviada.clave.correl = u"1"_s;
        enviada.norden = u"0"_s;
        enviada.control = u"00000017"_s;
        EnLaDeclaracion(enviada, u"sent"_s, mira);
        EnLaDeclaracion(registrada, u"registered"_s, mira);
        const EntornoDetalle detalle{*proceso.baseDatos,    avisos, reloj, Ruc(kRuc), Periodo(2026, 10),
                                     proceso.fechaPrimerIgv};
        for (const FilaCliente& fila :
             {FilaCliente{CodigoDocumento(6), kEmpresa, u"EMPRESA"_s, {}, {}, {}},
              FilaCliente{CodigoDocumento(1), u"45678901"_s, {}, u"ROJAS"_s, u"LUNA"_s, u"ANA"_s}})
            Ve(FrmAgePer(detalle, ModoDetalle::Modificar, fila), u"client"_s, mira);
        const ClaveComprobante clave{{CodigoDocumento(6), kEmpresa}, u"P001"_s, u"00000001"_s, {}};
        for (const ModoDetalle modo : {ModoDetalle::Nuevo, ModoDetalle::Modificar}) {
            Ve(FrmDetAgePer(detalle, modo, {clave, {}}), u"voucher"_s, mira);
            Ve(frmPerDet(detalle, modo, {{clave, u"01"_s, {}, {}}, {}, {}}, u"1"_s), u"payment"_s, mira);
        }
        Ve(FrmAgePer(detalle, ModoDetalle::Nuevo), u"new"_s, mira);
        Ve(frmTransferencia(proceso, avisos, registrada.clave, {.perfil = perfil, .archivos = archivos}), u"import"_s,
           mira);
        EnLaCorreccion(registrada.clave, mira);
        EnLaDeclaracion(std::nullopt, u"new form"_s, mira);
        const QString mens = raiz.filePath(u"Mens.txt"_s);
        EscribeEn(mens, "Indique la forma de pago.\n");
        Ve(FrmConsist(mens), u"faults"_s, mira);
    }
    void EnLaCorreccion(const ClaveDeclaracion& clave, const Mirada& mira) {
        const auto rechazadas = std::make_shared<LineasRechazadas>();
        rechazadas->Recibe({1, "6|20500000008|", {}, {{}, -1, MotivoDeLinea(Defecto::Separadores, 14)}});
        rechazadas->Recibe({2, "9|1||A|B|C|P001|1|15/10/2026|1|0|1|1|01|", {}, {"0009"_L1, 0, u"Tipo inválido"_s}});
        rechazadas->Cierra();
        const auto correccion = std::make_shared<Correccion>(rechazadas, FormatoVentas());
        Ve(FrmCorreccion({proceso, avisos, archivos, clave, carpeta, {}}, correccion), u"refused"_s, mira);
    }
    void EnLosInformes(const Mirada& mira) {
        const EntornoInformes informes = EntornoDeInformes(proceso, avisos, archivos);
        const QString archivo = QDir(proceso.rutaRPT).entryList({u"*.PRN"_s}, QDir::Files).value(0);
        ASSERT_FALSE(archivo.isEmpty());
        Ve(frmImprimir(proceso, informes, barra, false), u"print"_s, mira);
        const ClaveDeclaracion rectificada{.ruc = Ruc(kRuc), .periodo = Periodo(2026, 9), .formulario = kNumFormulario};
        SinAvance nadie;
        const PedidoDeComparacion pedido{.copia = UltimaCopia(*proceso.baseDatos, rectificada).value(),
                                         .nombre = u"DEMO"_s};
        const DatosCambios cambios{std::make_shared<const Comparacion>(Compara(*proceso.baseDatos, pedido, nadie)),
                                   CargarGrilla(*proceso.baseDatos)};
        Ve(FrmCambios(ProcesoAparte(proceso), informes, cambios), u"changes"_s, mira);
        Ve(frmImpxPag(informes, {archivo, {}, {}}, {120, u"Páginas"_s}), u"pages"_s, mira);
        Ve(frmPreview(informes, {archivo, {}, {}}), u"preview"_s, mira);
        Ve(frmImpresora({{u"sala"_s, u"Láser de la sala"_s, true, EstadoCola::Lista},
                         {u"matricial"_s, {}, false, EstadoCola::NoRecibe}}),
           u"printers"_s, mira);
    }
    void Ve(QWidget&& forma, const QString& estado, const Mirada& mira) { Ve(forma, estado, mira); }
    void Ve(QWidget& forma, const QString& estado, const Mirada& mira) {
        Muestra(forma);
        auto* fichas = forma.findChild<QTabWidget*>();
        const int paginas = fichas && estado != u"new form" ? fichas->count() : 1;
        for (int i = 0; i < paginas; ++i) {
            if (fichas)
                fichas->setCurrentIndex(i);
            QTest::qWait(0);
            SCOPED_TRACE(forma.objectName().toStdString() + ' ' + estado.toStdString() + ' ' + std::to_string(i));
            mira(forma);
        }
    }

    /// Whatever folder is the current one later.
    const QString m_ayuda = QFileInfo(QStringLiteral(XA518_AYUDA)).absoluteFilePath();
    const QFont m_letra = QApplication::font();
    const QString kEmpresa = u"20500000008"_s;

  protected:
    Proceso proceso{reloj, {Formulario0518()}, kNumFormulario};
    AvisosDePrueba avisos;
    DialogosDeArchivoDePrueba archivos;
    BarradeEstadoQMD barra;
    Dialogos dialogos;
    Entorno lugar{proceso, avisos, barra, dialogos};
};

/// The form's contents, within the area that scrolls where the screen has no room for them.
const QWidget& Contenido(const QWidget& forma) {
    const auto* area = forma.findChild<QScrollArea*>(u"AreaDeForma"_s);
    return area ? *area->widget() : forma;
}

/// Controls that have a place of their own; not those within a list, a grid or the like.
QList<QWidget*> Controles(const QWidget& forma) {
    const QWidget& contenido = Contenido(forma);
    QList<QWidget*> controles;
    for (QWidget* control : contenido.findChildren<QWidget*>()) {
        bool interno = false;
        for (const QWidget* padre = control->parentWidget(); padre && padre != &contenido;
             padre = padre->parentWidget())
            interno = interno || qobject_cast<const QAbstractScrollArea*>(padre) ||
                      qobject_cast<const QComboBox*>(padre) || qobject_cast<const QAbstractSpinBox*>(padre) ||
                      qobject_cast<const QTabBar*>(padre);
        if (!interno && control->isVisible() && control->window() == &forma)
            controles.append(control);
    }
    return controles;
}

QRect Sitio(const QWidget& forma, const QWidget& control) {
    return {control.mapTo(&Contenido(forma), QPoint()), control.size()};
}

/// From left to right and from the top down; up again only into a column further right.
bool SeLeeDespues(const QRect& uno, const QRect& otro) {
    const bool mismaFila = uno.top() < otro.center().y() && otro.center().y() < uno.bottom();
    return otro.top() > uno.top() ? !mismaFila || otro.left() > uno.left() : otro.left() > uno.right();
}

/// The options of a question count as one: Tab goes to one of them, the arrows to the others.
const QObject* Parada(const QWidget& control) {
    const auto* opcion = qobject_cast<const QRadioButton*>(&control);
    const QObject* grupo = opcion ? opcion->group() : nullptr;
    return grupo ? grupo : opcion ? control.parentWidget() : &control;
}

TEST_P(FormsLayoutTest, TabReachesEverythingAsAPersonReads) {
    EnCadaForma([](QWidget& forma) {
        QMap<const QObject*, QString> quedan;
        for (const QWidget* control : Controles(forma)) {
            if (control->isEnabled() && !control->focusProxy() && (control->focusPolicy() & Qt::TabFocus))
                quedan.insert(Parada(*control), control->objectName());
        }
        const qsizetype vuelta = quedan.size();
        const QWidget* antes = QApplication::focusWidget();
        QString camino;
        int saltos = 0;
        for (qsizetype i = 0; antes && i < vuelta; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            const QWidget* control = QApplication::focusWidget();
            quedan.remove(Parada(*control));
            const bool bien = SeLeeDespues(Sitio(forma, *antes), Sitio(forma, *control));
            camino += (bien ? u" "_s : u" <- "_s) + control->objectName();
            saltos += bien ? 0 : 1;
            antes = control;
        }
        EXPECT_EQ(quedan.values().join(u' '), QString()) << "Tab passes these over:" << camino.toStdString();
        EXPECT_LE(saltos, 1) << "only from the end to the beginning:" << camino.toStdString();
    });
}

/// The room that a control's text takes.
QSize Necesita(const QWidget& control) {
    if (const auto* rotulo = qobject_cast<const QLabel*>(&control)) {
        if (rotulo->wordWrap())
            return {0, rotulo->heightForWidth(rotulo->width())};
        const bool sinMedida = rotulo->sizePolicy().horizontalPolicy() == QSizePolicy::Ignored; // a path of any length
        return rotulo->text().isEmpty() || sinMedida ? QSize() : rotulo->sizeHint();
    }
    if (qobject_cast<const QAbstractButton*>(&control) || qobject_cast<const QTabBar*>(&control) ||
        qobject_cast<const QAbstractSpinBox*>(&control))
        return control.sizeHint();
    if (const auto* campo = qobject_cast<const QLineEdit*>(&control)) {
        const QString texto =
            campo->inputMask().isEmpty() ? QString() : u"00/00/0000"_s.left(campo->displayText().size());
        return {campo->fontMetrics().horizontalAdvance(texto), campo->sizeHint().height()};
    }
    const bool conTitulo = qobject_cast<const QGroupBox*>(&control) != nullptr;
    return {conTitulo ? control.minimumSizeHint().width() : 0, 0};
}

/// What is cut off in a form, each with the room that it has and that it needs.
QString Cortados(const QWidget& forma) {
    QString cortados;
    for (const QWidget* control : Controles(forma)) {
        const QSize pide = Necesita(*control);
        const QSize tiene = control->size();
        if (pide.expandedTo(tiene) != tiene || !control->parentWidget()->rect().contains(control->geometry()))
            cortados += u" %1 (%2x%3, needs %4x%5)"_s.arg(control->objectName())
                            .arg(tiene.width())
                            .arg(tiene.height())
                            .arg(pide.width())
                            .arg(pide.height());
    }
    for (const auto* titulos : forma.findChildren<QHeaderView*>()) {
        for (int i = 0; i < titulos->count() && titulos->isVisible(); ++i) {
            if (titulos->sectionSize(i) < titulos->sectionSizeHint(i))
                cortados += u" column %1 of %2"_s.arg(i).arg(titulos->parent()->objectName());
        }
    }
    return cortados;
}

TEST_P(FormsLayoutTest, NothingIsCutOff) {
    EnCadaForma([](QWidget& forma) {
        EXPECT_TRUE(forma.screen()->availableGeometry().contains(forma.frameGeometry())) << "on the screen";
        EXPECT_LE(Contenido(forma).width(), 1920 * GetParam() / 150);
        EXPECT_LE(Contenido(forma).height(), 1080 * GetParam() / 150);
        for (const QLabel* rotulo : forma.findChildren<QLabel*>())
            EXPECT_EQ(rotulo->textFormat(), Qt::PlainText)
                << "takes a name for markup:" << rotulo->objectName().toStdString();
        EXPECT_EQ(Cortados(forma), QString()) << "as it opens";
        const QSize abierta = forma.size();
        forma.resize(forma.minimumSize().expandedTo(forma.minimumSizeHint()));
        QTest::qWait(0);
        EXPECT_EQ(Cortados(forma), QString()) << "as small as it goes";
        for (QWidget* control : Controles(forma)) {
            if (!control->isEnabled() || control->focusPolicy() == Qt::NoFocus)
                continue;
            control->setFocus();
            const QWidget& enfocado = *forma.focusWidget(); // of a group of options the marked one
            EXPECT_FALSE(enfocado.visibleRegion().isEmpty()) << "out of sight:" << enfocado.objectName().toStdString();
        }
        forma.resize(abierta);
    });
}

INSTANTIATE_TEST_SUITE_P(AtScale, FormsLayoutTest, testing::Values(100, 150));

} // namespace
