#include "app/MDIFrm.h"
#include "app/ModuleForms.h"

#include "app/AppFixture.h"
#include "declaration/TypedForm.h"
#include "family/WorkSeat.h"
#include "form518/UnsavedDeclaration.h"
#include "support/FileDialogScript.h"

#include <QAction>
#include <QTabWidget>
#include <QTest>

namespace {

const QString kAna = u"20100000009"_s;
const QString kSinGrabar =
    u"Hay una declaración sin grabar de ANA  S.A., período 09/2026, con 1 comprobante, del 22/11/2026 08:51."
    " ¿Retomarla?"_s;
const QString kModificado = u"¿El formulario ha sido modificado, desea guardar los cambios?"_s;

/// The module, which has left a declaration unsaved.
class UnsavedOfferTest : public ModuloDePrueba {
  protected:
    void SetUp() override { Declarante(6, kAna, u"ANA  S.A."_s, u"JEFA"_s); }

    /// As a crash leaves it: a new declaration, in its last page.
    void DejaSinGrabar(const QString& json = {}) {
        LoEscrito escrito;
        escrito.periodo = u"09/2026"_s;
        escrito.claveFija = true;
        escrito.montos.Cambia(402, u"(7)"_s);
        escrito.pago.forma = FormaDePago::Efectivo;
        escrito.rectifica = Rectificacion::Si;
        escrito.pestania = 2;
        AbreElProceso();
        (void)OcupaPuesto(proceso);
        Base& suya = *proceso.baseDatos;
        suya.Ejecuta(u"INSERT INTO TMPF518PCAB (tip_doc_per, num_doc_per, des_razon) VALUES (6, '20500000007', 'X')"_s);
        suya.Ejecuta(u"INSERT INTO TMPF518PDET (tip_doc_per, num_doc_per, num_serie_cp, num_cp, tip_cp, mto_base_p,"
                     " mto_imp_p) VALUES (6, '20500000007', 'P001', '1', '', '100.00', '10.00')"_s);
        TablaSinGrabar(suya).Escribe({.nueva = true,
                                      .clave = {.ruc = Ruc(kAna), .periodo = Periodo(2026, 9), .formulario = u"0518"_s},
                                      .escrito = json.isEmpty() ? escrito.EnJson() : json,
                                      .usuario = u"JEFA"_s,
                                      .equipo = u"CAJA-1"_s,
                                      .momento = QDateTime(QDate(2026, 11, 22), QTime(8, 51))});
        proceso.baseDatos.reset();
    }
    void Arranca() {
        ventana = std::make_unique<MDIFrm>(proceso, avisos, perfil, dialogos);
        ASSERT_TRUE(ventana->Carga());
        EsperaTrabajos();
    }
    void Ordena(const QString& orden) {
        De<QAction>(*ventana, orden).trigger();
        EsperaTrabajos();
    }
    [[nodiscard]] bool HaySinGrabar() const { return TablaSinGrabar(*proceso.baseDatos).Lee().has_value(); }
    [[nodiscard]] qsizetype Apartadas() const { return TablaSinGrabar(*proceso.baseDatos).Apartadas().size(); }

    DialogosDeArchivoDePrueba archivos;
    Dialogos dialogos = FormasDelModulo(proceso, avisos, archivos, perfil);
    std::unique_ptr<MDIFrm> ventana;
};

TEST_F(UnsavedOfferTest, YesBringsFormAndDetailBackAndASaveWorks) {
    DejaSinGrabar();
    avisos.EsperaPregunta(kSinGrabar, Respuesta::Si);
    avisos.Espera(u"La infomación de la declaración fue grabada con inconsistencias. En estas condiciones no podra ser"
                  " enviada a ZOLMA."_s);
    AlAbrir(u"Frm518", [](QWidget& forma) {
        EXPECT_EQ(De<QTabWidget>(forma, "SSTab1").currentIndex(), 2);
        EXPECT_EQ(De<QLineEdit>(forma, "TxtRazon").text(), u"ANA  S.A."_s);
        EXPECT_FALSE(De<QLineEdit>(forma, "MkePeriodo").isEnabled());
        EXPECT_EQ(De<QLineEdit>(forma, "TxtValor_401").text() + De<QLineEdit>(forma, "TxtValor_402").text() +
                      De<QLineEdit>(forma, "TxtValor_403").text(),
                  u"1073"_s);
        EXPECT_TRUE(De<QAbstractButton>(forma, "OptEfectivo").isChecked());
        EXPECT_TRUE(De<QAbstractButton>(forma, "OptRectifica_1").isChecked());
        Clic(forma, "CmdGrabar");
        Clic(forma, "CmdCancelar"); // nothing is left to ask
    });
    Arranca();
    EXPECT_EQ(base.Filas(u"SELECT periodo, rectifica FROM CAB"_s), QStringList{u"202609|1"_s});
    EXPECT_EQ(base.Filas(u"SELECT count(*) FROM F518PDET"_s), QStringList{u"1"_s});
    EXPECT_FALSE(HaySinGrabar());
}

TEST_F(UnsavedOfferTest, LaterTouchesNothingAndAsksAgainBeforeAnythingThatWould) {
    Declaracion(kAna, u"202608"_s);
    DejaSinGrabar();
    avisos.EsperaPregunta(kSinGrabar, Respuesta::Otra);
    Arranca();
    avisos.EsperaPregunta(kSinGrabar, Respuesta::Otra);
    Ordena(u"mnuNueva"_s);
    avisos.EsperaPregunta(kSinGrabar, Respuesta::Otra);
    AlAbrir(u"FrmContAbrir", [](QWidget& lista) { Clic(lista, "CmdOpciones_0"); });
    Ordena(u"mnuModificar"_s);
    EXPECT_EQ(TablaSinGrabar(*proceso.baseDatos).Comprobantes(), 1);

    // The delete of another declaration takes nothing from it.
    avisos.EsperaPregunta(u"¿Confirma que va a eliminar la declaración seleccionada?"_s, Respuesta::Si);
    AlAbrir(u"FrmContAbrir", [](QWidget& lista) { Clic(lista, "CmdOpciones_0"); });
    Ordena(u"mnuEliminar"_s);
    EXPECT_EQ(base.Filas(u"SELECT count(*) FROM CAB"_s), QStringList{u"0"_s});
    EXPECT_TRUE(HaySinGrabar());
}

TEST_F(UnsavedOfferTest, NoPutsItAsideFromWhereItCanBeTakenUpAgain) {
    DejaSinGrabar();
    avisos.EsperaPregunta(kSinGrabar, Respuesta::Otra);
    Arranca();
    avisos.EsperaPregunta(kSinGrabar, Respuesta::No);
    AlAbrir(u"Frm518", [](QWidget& forma) {
        EXPECT_FALSE(De<QComboBox>(forma, "CmbRuc").isHidden()) << "a new declaration, as it was asked for";
        EXPECT_EQ(De<QLineEdit>(forma, "TxtBase").text(), QString());
    });
    Ordena(u"mnuNueva"_s);
    EXPECT_EQ(Apartadas(), 1);

    const QString apartada =
        u"Apartada el %1: la declaración sin grabar de ANA  S.A., período 09/2026, con 1 comprobante, del"
        " 22/11/2026 08:51. ¿Retomarla?"_s.arg(reloj.Ahora().toString(u"dd/MM/yyyy HH:mm"_s));
    avisos.EsperaPregunta(apartada, Respuesta::Otra);
    Ordena(u"mnuRetomar"_s);
    EXPECT_EQ(Apartadas(), 1);
    avisos.EsperaPregunta(apartada, Respuesta::Si);
    avisos.EsperaPregunta(kModificado, Respuesta::No);
    AlAbrir(u"Frm518", [](QWidget& forma) {
        EXPECT_EQ(De<QLineEdit>(forma, "TxtValor_402").text(), u"7"_s) << "plain, as it has the focus";
        Clic(forma, "CmdCancelar");
    });
    Ordena(u"mnuRetomar"_s);
    EXPECT_EQ(Apartadas(), 0);
    EXPECT_FALSE(HaySinGrabar()) << "it was left on purpose";
    avisos.Espera(
        u"No hay declaraciones apartadas. Una declaración sin grabar que no se retoma queda apartada durante 7"
        " días."_s);
    Ordena(u"mnuRetomar"_s);
}

TEST_F(UnsavedOfferTest, WhatCantBeReadIsSetAsideAndTold) {
    DejaSinGrabar(u"{\"casillas\":"_s);
    const QString nombre = u"ilegible-"_s + reloj.Ahora().toString(u"yyyyMMdd-HHmmss"_s);
    avisos.Espera(
        u"La declaración que quedó sin grabar no se puede leer: es de otra versión del programa o está dañada."
        " Quedó apartada con el nombre «%1»."_s.arg(nombre));
    Arranca();
    EXPECT_TRUE(ventana->isVisible());
    EXPECT_FALSE(HaySinGrabar());
    EXPECT_EQ(Apartadas(), 0) << "it isn't offered";
    Registros fila = proceso.baseDatos->Lee(u"SELECT Nombre FROM TMPF518APARTADA"_s);
    ASSERT_TRUE(fila.Siguiente());
    EXPECT_EQ(fila.Texto(0), nombre);
}

} // namespace
