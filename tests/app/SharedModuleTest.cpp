#include "app/FrmContAbrir.h"
#include "app/MDIFrm.h"
#include "app/ModuleForms.h"

#include "app/AppFixture.h"
#include "data/Seats.h"
#include "family/WorkSeat.h"
#include "support/FileDialogScript.h"
#include "widgets/StatusBar.h"

#include <QAction>
#include <QTest>

namespace {

const QString kAna = u"20100000009"_s;
const DeclaracionOcupada kSetiembre{.ruc = kAna, .periodo = u"202609"_s, .formulario = u"0518"_s};

/// The module at one seat of a server, with another seat beside it.
class SharedModuleTest : public ModuloDePrueba {
  protected:
    SharedModuleTest() : otro(Base::Abre(base.Ruta())) {
        Declarante(6, kAna, u"ANA  S.A."_s, u"JEFA"_s);
        Declaracion(kAna, u"202609"_s);
        (void)otro->LosPuestos()->Toma({.usuario = u"ANA"_s, .equipo = u"CAJA-2"_s, .programa = u"xa518"_s});
    }
    /// Of the other seat's declaration.
    [[nodiscard]] QString Abierta() const {
        const Puesto puesto = base->LosPuestos()->QuienTiene(kSetiembre).value();
        return u"La declaración 0518 de 09/2026 está abierta por ANA en CAJA-2 desde las %1."_s.arg(
            puesto.abiertaDesde.toString(u"HH:mm"_s));
    }
    void Elige(OpcionDeLista opcion) {
        FrmContAbrir lista(Entorno{proceso, avisos, barra, dialogos}, opcion);
        Muestra(lista);
        Clic(lista, u"CmdOpciones_0");
    }
    std::unique_ptr<MDIFrm> Arranca() {
        auto ventana = std::make_unique<MDIFrm>(proceso, avisos, perfil, dialogos);
        EXPECT_TRUE(ventana->Carga());
        EsperaTrabajos();
        return ventana;
    }

    std::unique_ptr<Base> otro;
    BarradeEstadoQMD barra;
    DialogosDeArchivoDePrueba archivos;
    Dialogos dialogos = FormasDelModulo(proceso, avisos, archivos, perfil);
};

TEST_F(SharedModuleTest, WhatAnotherSeatHasOpenIsLookedAtOnlyAndNotDeleted) {
    AbreElProceso();
    (void)OcupaPuesto(proceso);
    ASSERT_TRUE(otro->LosPuestos()->Ocupa(kSetiembre));
    const QString pregunta = Abierta() + u"\n\n¿Desea verla sin modificar?"_s;
    avisos.EsperaPregunta(pregunta, Respuesta::No);
    Elige(OpcionDeLista::Modificar);

    avisos.EsperaPregunta(pregunta, Respuesta::Si);
    AlAbrir(u"Frm518", [this](QWidget& forma) {
        const auto& graba = De<QPushButton>(forma, "CmdGrabar");
        EXPECT_FALSE(graba.isEnabled());
        EXPECT_EQ(graba.statusTip(), Abierta());
        EXPECT_TRUE(De<QPushButton>(forma, "CmdOpciones_3").isHidden());
        Clic(forma, "CmdCancelar"); // asks nothing
    });
    Elige(OpcionDeLista::Modificar);

    avisos.EsperaPregunta(u"¿Confirma que va a eliminar la declaración seleccionada?"_s, Respuesta::Si);
    avisos.Espera(Abierta());
    Elige(OpcionDeLista::Eliminar);
    EXPECT_EQ(base.Filas(u"SELECT count(*) FROM CAB"_s), QStringList{u"1"_s});

    otro->LosPuestos()->Libera(kSetiembre);
    AlAbrir(u"Frm518", [this](QWidget& forma) {
        EXPECT_TRUE(De<QPushButton>(forma, "CmdGrabar").isEnabled());
        EXPECT_FALSE(otro->LosPuestos()->Ocupa(kSetiembre)) << "it is this seat's now";
        Clic(forma, "CmdCancelar");
    });
    Elige(OpcionDeLista::Modificar);
    EXPECT_TRUE(otro->LosPuestos()->Ocupa(kSetiembre));
}

TEST_F(SharedModuleTest, WhatIsWrongWithTheServerIsToldInTheBoxOfTheStart) {
    perfil.Escribe(u"Options"_s, u"DBName", base.DBName() + u" dbname=nohay"_s);
    avisos.Espera({Icono::Ninguno,
                   u"El servidor no tiene la base de datos 'nohay': revise dbname en XA000.INI.\n 3024"_s,
                   u"Error de Conección"_s});
    MDIFrm ventana(proceso, avisos, perfil, dialogos);
    EXPECT_FALSE(ventana.Carga());
    EXPECT_EQ(proceso.baseDatos, nullptr);
}

TEST_F(SharedModuleTest, AnAccountThatReadsAloneOpensAndShowsButGreysWhatWrites) {
    const QString cuenta = u"lee_%1"_s.arg(QCoreApplication::applicationPid());
    PideAlServidor(u"CREATE ROLE %1 LOGIN"_s.arg(cuenta));
    for (const QString& permiso :
         {u"GRANT USAGE ON SCHEMA familia, dialecto TO %1"_s, u"GRANT SELECT ON ALL TABLES IN SCHEMA familia TO %1"_s})
        base->Ejecuta(permiso.arg(cuenta));
    perfil.Escribe(u"Options"_s, u"DBName", base.DBName() + u" user="_s + cuenta);
    const auto ventana = Arranca();
    const QString motivo = u"La cuenta con la que se conecta al servidor es sólo de lectura."_s;
    for (const char* vedada : {"mnuNueva", "mnuEliminar", "mnuEliminarE", "Toolbar1_1", "Toolbar1_3"}) {
        const auto& orden = De<QAction>(*ventana, vedada);
        EXPECT_FALSE(orden.isEnabled()) << vedada;
        EXPECT_EQ(orden.statusTip() + orden.toolTip(), motivo + motivo) << vedada;
    }
    AlAbrir(u"Frm518", [&](QWidget& forma) {
        EXPECT_FALSE(De<QPushButton>(forma, "CmdGrabar").isEnabled());
        EXPECT_EQ(De<QPushButton>(forma, "CmdGrabar").statusTip(), motivo);
        Clic(forma, "CmdCancelar");
    });
    Elige(OpcionDeLista::Modificar);
}

} // namespace
