#include "app/FrmContAbrir.h"
#include "app/FrmContAbrirE.h"

#include "app/AppFixture.h"
#include "widgets/ReadGrid.h"
#include "widgets/StatusBar.h"

#include <QHeaderView>
#include <QTest>
#include <QTimer>

namespace {

const QString kAna = u"20100000009"_s;
const QString kBeto = u"20200000008"_s;
const QString kPregunta = u"¿Confirma que va a eliminar la declaración seleccionada?"_s;

class PickersTest : public ModuloDePrueba {
  protected:
    PickersTest() {
        Declarante(6, kAna, u"ANA  S.A."_s, u"JEFA"_s);
        Declarante(6, kBeto, u"ALMACEN BETO"_s, u"JEFA"_s);
        Declarante(6, u"20300000007"_s, u"DE OTRO"_s, u"OTRO"_s);
        AbreElProceso();
        dialogos.declaracion = [this](BarradeEstadoQMD&, const AperturaPedida& pedida) {
            if (alAbrir)
                alAbrir();
            const DeclaracionElegida& elegida = pedida.elegida.value();
            const ClaveDeclaracion& clave = elegida.clave;
            elegidas.append(QStringList{clave.ruc.Texto(), elegida.nombre, clave.periodo.EnLista(), elegida.norden,
                                        elegida.control, clave.correl}
                                .join(u'|'));
            QDialog forma(pedida.padre);
            pedida.muestra(forma);
        };
    }
    void Registradas() const {
        Declaracion(kAna, u"202608"_s);
        Declaracion(kBeto, u"202609"_s);
        Declaracion(kAna, u"202610"_s);
        Declaracion(u"20300000007"_s, u"202610"_s);
    }
    template <typename Lista>
    std::unique_ptr<Lista> Abre(OpcionDeLista opcion) {
        auto lista = std::make_unique<Lista>(Entorno{proceso, avisos, barra, dialogos}, opcion);
        Muestra(*lista);
        return lista;
    }
    static GrillaDeLectura& Grilla(QWidget& lista) { return *lista.findChild<GrillaDeLectura*>(); }
    static void Boton(const QWidget& lista, int indice) { Clic(lista, u"CmdOpciones_%1"_s.arg(indice)); }
    /// The cells of one column, from the top.
    static QStringList Columna(QWidget& lista, int columna) {
        const auto& datos = *Grilla(lista).model();
        QStringList celdas;
        for (int fila = 0; fila < datos.rowCount(); ++fila)
            celdas.append(datos.index(fila, columna).data().toString());
        return celdas;
    }
    static void Cabecera(QWidget& lista, int columna) {
        QHeaderView& cabecera = *Grilla(lista).horizontalHeader();
        QTest::mouseClick(cabecera.viewport(), Qt::LeftButton, {},
                          {cabecera.sectionViewportPosition(columna) + 20, cabecera.height() / 2});
    }
    static void DobleClic(QWidget& lista, int fila) {
        const QPoint sitio = Grilla(lista).visualRect(Grilla(lista).model()->index(fila, 1)).center();
        QTest::mouseClick(Grilla(lista).viewport(), Qt::LeftButton, {}, sitio);
        QTest::mouseDClick(Grilla(lista).viewport(), Qt::LeftButton, {}, sitio);
    }

    BarradeEstadoQMD barra;
    Dialogos dialogos;
    QStringList elegidas;
    std::function<void()> alAbrir;
};

TEST_F(PickersTest, ListsTheUsersOwnAndSortsByTheFirstTwoHeads) {
    Registradas();
    const auto lista = Abre<FrmContAbrir>(OpcionDeLista::Modificar);
    EXPECT_EQ(Columna(*lista, 2), (QStringList{u"102026"_s, u"092026"_s, u"082026"_s}));
    const std::pair<int, QStringList> ordenes[] = {{1, {kBeto, kAna, kAna}},
                                                   {2, {kBeto, kAna, kAna}}, // the head does nothing
                                                   {0, {kAna, kAna, kBeto}},
                                                   {5, {kAna, kAna, kBeto}}};
    for (const auto& [columna, rucs] : ordenes) {
        Cabecera(*lista, columna);
        EXPECT_EQ(Columna(*lista, 0), rucs) << columna;
    }
    base->Ejecuta(u"INSERT INTO CLAVES VALUES ('JEFA','0')"_s);
    EXPECT_EQ(Columna(*Abre<FrmContAbrir>(OpcionDeLista::Modificar), 0).size(), 4)
        << "a user of kind 0 sees everybody's";
}

TEST_F(PickersTest, OpensTheRowHiddenAndComesBackToIt) {
    Registradas();
    const auto lista = Abre<FrmContAbrir>(OpcionDeLista::Modificar);
    EXPECT_EQ(barra.Ruc() + barra.Nombre() + barra.Periodo(), kAna + u"ANA  S.A."_s + u"10/2026"_s);
    const QList<std::function<void()>> gestos = {[&] { DobleClic(*lista, 1); },
                                                 [&] { QTest::keyClick(&Grilla(*lista), Qt::Key_Return); },
                                                 [&] { Boton(*lista, 0); }};
    for (const auto& gesto : gestos) {
        AlAbrir({}, [&](QWidget& /*forma*/) {
            EXPECT_FALSE(lista->isVisible());
            barra.Limpia({});
        });
        gesto();
        EXPECT_TRUE(lista->isVisible());
        EXPECT_EQ(elegidas.takeLast(), kBeto + u"|ALMACEN BETO|092026|||"_s);
        EXPECT_EQ(Grilla(*lista).Fila(), 1);
        EXPECT_EQ(barra.Periodo(), u"09/2026"_s) << "told again";
        lista->activateWindow();
    }
    // The row that was open is the last one, and it is gone: back to the first.
    Grilla(*lista).PonFila(2);
    AlAbrir({}, [&](QWidget& /*forma*/) { base->Ejecuta(u"DELETE FROM CAB WHERE periodo='202608'"_s); });
    Boton(*lista, 0);
    EXPECT_EQ(Grilla(*lista).Fila(), 0);
    Boton(*lista, 1);
    EXPECT_FALSE(lista->isVisible());
    EXPECT_EQ(barra.Ruc() + barra.Nombre() + barra.Periodo() + barra.Formulario(), u"0518"_s);
}

/// The form's own wait must outlive the time in which it is hidden.
TEST_F(PickersTest, StaysOpenModallyWhenTheDeclarationCloses) {
    Registradas();
    FrmContAbrir lista(Entorno{proceso, avisos, barra, dialogos}, OpcionDeLista::Modificar);
    bool seguia = false;
    QTimer::singleShot(0, &lista, [&] {
        AlAbrir({}, [](QWidget& forma) { EXPECT_NE(forma.objectName(), u"FrmContAbrir"); });
        QTest::keyClick(&Grilla(lista), Qt::Key_Enter);
        QTimer::singleShot(50, &lista, [&] {
            seguia = lista.isVisible() && lista.isModal();
            lista.close();
        });
    });
    lista.exec();
    EXPECT_EQ(elegidas.size(), 1);
    EXPECT_TRUE(seguia);
}

TEST_F(PickersTest, AnEmptyListStopsWithoutAWordAndAFullOneKeepsItsRow) {
    const auto vacia = Abre<FrmContAbrir>(OpcionDeLista::Eliminar);
    Boton(*vacia, 0);
    QTest::keyClick(&Grilla(*vacia), Qt::Key_Return);
    Boton(*Abre<FrmContAbrirE>(OpcionDeLista::Modificar), 0);
    EXPECT_TRUE(elegidas.isEmpty());

    Registradas();
    const auto lista = Abre<FrmContAbrir>(OpcionDeLista::Modificar);
    Grilla(*lista).setCurrentIndex(Grilla(*lista).model()->index(0, 0));
    QTest::keyClicks(&Grilla(*lista), kBeto.left(4));
    EXPECT_EQ(Grilla(*lista).Fila(), 0) << "the list was searched";
    QTest::keyClick(&Grilla(*lista), Qt::Key_Down);
    EXPECT_EQ(Grilla(*lista).Fila(), 1);
    const QPoint enLaFila = Grilla(*lista).visualRect(Grilla(*lista).model()->index(1, 1)).center();
    QWidget& hoja = *Grilla(*lista).viewport();
    for (const auto& [tecla, sitio] :
         {std::pair{Qt::NoModifier, hoja.rect().bottomLeft()}, {Qt::ControlModifier, enLaFila}}) {
        QTest::mouseClick(&hoja, Qt::LeftButton, tecla, sitio);
        EXPECT_TRUE(Grilla(*lista).selectionModel()->isRowSelected(1)) << "the row that a button acts on always shows";
        EXPECT_EQ(Grilla(*lista).Fila(), 1);
    }
}

TEST_F(PickersTest, TheSentListTakesTheRowsNumbersAndIsAnotherOneOnReturn) {
    Declaracion(kAna, u"202609"_s, u"2"_s);
    Declarante(1, kAna, u"LA MISMA CON DNI"_s, u"JEFA"_s);
    base->Ejecuta(u"UPDATE HCAB SET norden=' 123456789 ', control='10000042', fec_env='05/10/2026'"_s);
    const auto lista = Abre<FrmContAbrirE>(OpcionDeLista::Modificar);
    EXPECT_EQ(Columna(*lista, 1).size(), 2) << "the declarant's kind isn't limited at load";
    AlAbrir({}, [](QWidget& /*forma*/) {});
    Boton(*lista, 0);
    EXPECT_EQ(elegidas.last().section(u'|', 2), u"092026|123456789|10000042|2"_s);
    EXPECT_EQ(Columna(*lista, 1), QStringList{u"ANA  S.A."_s});
}

/// Sent by the launcher, or deleted by another program, since the list was read.
TEST_F(PickersTest, ARowThatIsGoneIsToldAndListedNoMore) {
    Registradas();
    Declaracion(kAna, u"202609"_s, u"1"_s);
    const QString seFue =
        u"La declaración seleccionada ya no está aquí: fue enviada o eliminada mientras se mostraba la"
        " lista. La lista se ha actualizado."_s;
    const auto pide = [&](QWidget& lista, const QString& tabla, qsizetype quedan, bool elimina = false) {
        const auto seVa = [&] { base->Ejecuta(u"DELETE FROM %1 WHERE periodo='202609'"_s.arg(tabla)); };
        if (elimina) { // while the question stands
            avisos.EsperaPregunta(kPregunta, Respuesta::Si);
            avisos.AlMostrar(seVa);
        } else {
            seVa();
        }
        avisos.Espera({Icono::Exclamacion, seFue, lista.windowTitle()});
        Boton(lista, 0);
        avisos.AlMostrar({});
        EXPECT_EQ(Columna(lista, 0).size(), quedan);
    };
    const auto registradas = Abre<FrmContAbrir>(OpcionDeLista::Modificar);
    Grilla(*registradas).PonFila(1);
    pide(*registradas, u"CAB"_s, 2);
    pide(*Abre<FrmContAbrirE>(OpcionDeLista::Modificar), u"HCAB"_s, 0);
    EXPECT_EQ(elegidas, QStringList()) << "an empty declaration would be saved beside the copy that was sent";
    Declaracion(kBeto, u"202609"_s, u"1"_s);
    pide(*Abre<FrmContAbrirE>(OpcionDeLista::Eliminar), u"HCAB"_s, 0, true);
}

class DeletionTest : public PickersTest {
  protected:
    /// Every table tells when a row of it goes.
    void Anota() const {
        base->Ejecuta(u"CREATE TABLE BORRADO (tabla TEXT)"_s);
        for (const QString& tabla : m_tablas)
            base.AlBorrar(tabla, u"INSERT INTO BORRADO(tabla) VALUES ('%1')"_s.arg(tabla));
    }
    [[nodiscard]] QString Borrado() const {
        return base.Filas(u"SELECT tabla FROM BORRADO ORDER BY "_s + base->NumeroDeFila(u"BORRADO"_s)).join(u' ');
    }
    [[nodiscard]] qsizetype Quedan() const {
        qsizetype filas = 0;
        for (const QString& tabla : m_tablas)
            filas += base.Filas(u"SELECT 1 FROM "_s + tabla).size();
        return filas;
    }

    const QStringList m_tablas =
        kTablas + QStringList{u"HCAB"_s, u"HDET"_s, u"HF518PCAB"_s, u"HF518PDET"_s, u"HF518PDETVC"_s, u"HF518PDETCP"_s};
};

TEST_F(DeletionTest, AsksFirstAndThenDeletesThatDeclarationInOrder) {
    Registradas();
    Declaracion(kAna, u"202610"_s, u"1"_s);
    Anota();
    const auto lista = Abre<FrmContAbrir>(OpcionDeLista::Eliminar);
    avisos.EsperaPregunta(kPregunta, Respuesta::No);
    QTest::keyClick(&Grilla(*lista), Qt::Key_Return);
    EXPECT_EQ(avisos.Mostrados().last().preseleccionada, Respuesta::No);
    EXPECT_EQ(avisos.Mostrados().last().mensaje, (Mensaje{Icono::Pregunta, kPregunta, u"Eliminar Declaraciones"_s}));
    EXPECT_EQ(Borrado(), u""_s);

    avisos.EsperaPregunta(kPregunta, Respuesta::Si);
    Boton(*lista, 0);
    EXPECT_EQ(Borrado(), u"DET CAB F518PDETCP F518PDET F518PDETVC F518PCAB"_s);
    EXPECT_EQ(Columna(*lista, 2), (QStringList{u"092026"_s, u"082026"_s}));
    EXPECT_EQ(Grilla(*lista).Fila(), 0);
    EXPECT_EQ(barra.Ruc(), kBeto);
}

TEST_F(DeletionTest, OfOneSentCopyLeavesItsCashSalesAndTheOtherCopies) {
    Registradas();
    Declaracion(kAna, u"202610"_s, u"1"_s);
    Declaracion(kAna, u"202610"_s, u"2"_s);
    Anota();
    const qsizetype antes = Quedan();
    const auto lista = Abre<FrmContAbrirE>(OpcionDeLista::Eliminar);
    Grilla(*lista).PonFila(1);
    avisos.EsperaPregunta(kPregunta, Respuesta::Si);
    Boton(*lista, 0);
    EXPECT_EQ(avisos.Mostrados().last().mensaje.titulo, u"Eliminar Declaraciones Enviadas"_s);
    EXPECT_EQ(avisos.Mostrados().last().preseleccionada, Respuesta::No);
    EXPECT_EQ(Borrado(), u"HDET HCAB HF518PDETCP HF518PDET HF518PCAB"_s);
    EXPECT_EQ(Quedan(), antes - 5);
    EXPECT_EQ(base.Filas(u"SELECT correl FROM HF518PDETVC ORDER BY correl"_s), (QStringList{u"1"_s, u"2"_s}));
    EXPECT_EQ(base.Filas(u"SELECT correl FROM HCAB"_s), QStringList{u"1"_s});
}

/// A failure half way undoes the whole and is told to nobody.
TEST_F(DeletionTest, ThatFailsChangesNothing) {
    Registradas();
    base.AlBorrar(u"F518PCAB"_s, u"INSERT INTO NO_HAY VALUES (1)"_s);
    const qsizetype antes = Quedan();
    const auto lista = Abre<FrmContAbrir>(OpcionDeLista::Eliminar);
    avisos.EsperaPregunta(kPregunta, Respuesta::Si);
    Boton(*lista, 0);
    EXPECT_EQ(Quedan(), antes);
    EXPECT_EQ(Columna(*lista, 0).size(), 3);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

} // namespace
