#include "Await.h"
#include "BareBase.h"
#include "Measure.h"
#include "SavedSample.h"

#include "declaration/Frm518.h"
#include "family/Process.h"
#include "form518/Form0518.h"
#include "platform/Clock.h"
#include "widgets/NoticeBoxes.h"
#include "widgets/StatusBar.h"

#include <QApplication>
#include <QElapsedTimer>

#include <cstdio>
#include <memory>
#include <stdexcept>

using namespace xa518;
using namespace xa518::medida;
using namespace Qt::StringLiterals;

namespace {

/// The same rows into the work tables by the engine's own statements, nothing shown.
void CopiaDesnuda(const QString& ruta) {
    BaseDesnuda base(ruta);
    base.Pide("BEGIN IMMEDIATE");
    base.Pide("DELETE FROM TMPF518PCAB");
    base.Pide("DELETE FROM TMPF518PDET");
    base.Pide("DELETE FROM TMPF518PDETCP");
    base.Pide("INSERT INTO TMPF518PCAB SELECT tip_doc_per,num_doc_per,des_razon,des_apellido_p,des_apellido_m,"
              "des_nombres,ctd_docs,mto_base_p,mto_imp_p,ind_ruc FROM F518PCAB");
    base.Pide("INSERT INTO TMPF518PDET SELECT tip_doc_per,num_doc_per,num_serie_cp,num_cp,'',cp_fact,lista_clie,"
              "med_pago,fec_emision_cp,mto_base_p,mto_imp_p,por_tasa_p FROM F518PDET");
    base.Pide("INSERT INTO TMPF518PDETCP SELECT tip_doc_per,num_doc_per,num_serie_cp,num_cp,tip_doc_detcp,"
              "num_serie_detcp,num_detcp,fec_emis_detcp,mto_detcp FROM F518PDETCP");
    base.Pide("COMMIT");
}

/// Opens the form on the saved declaration, until its window has been painted.
void AbreFormulario(const QString& ruta) {
    const RelojFijo reloj(QDateTime(QDate(2026, 11, 1), QTime(9, 0)));
    Proceso proceso(reloj, {Formulario0518()}, kNumFormulario);
    proceso.baseDatos = Base::Abre(ruta);
    AvisosEnPantalla avisos;
    BarradeEstadoQMD barra;
    const DeclaracionElegida elegida{.clave = kClave, .nombre = u"COMERCIAL DEL VALLE S.A.C."_s};
    QWidget detras;
    std::unique_ptr<Frm518> forma;
    TomaTablas(detras, proceso, elegida, [&](const TablasTomadas& tablas) {
        forma = std::make_unique<Frm518>(EntornoDeclaracion{proceso, avisos, barra}, tablas, elegida);
        forma->show();
    });
    EsperaTrabajos();
}

/// The work of one measure, with the window system's own start outside of it.
Medida MideConVentanas(const Detalle& detalle, void (*trabajo)(const QString& ruta)) {
    return Mide([&detalle, trabajo] {
        static int argc = 1;
        static char nombre[] = "form_bench";
        static char* argv[] = {nombre, nullptr};
        const auto aplicacion = std::make_shared<QApplication>(argc, argv);
        const auto taller = std::make_shared<TallerGuardado>(detalle);
        Graba(*taller->base);
        return [aplicacion, taller, trabajo] { trabajo(taller->base.Ruta()); };
    });
}

} // namespace

int main() {
    try {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        std::printf("  clients  vouchers   bare copy s   form open s    ratio\n");
        for (const Detalle detalle : {Detalle{5'000, 12'500}, Detalle{20'000, 50'000}}) {
            const Medida suelo = MideConVentanas(detalle, CopiaDesnuda);
            const Medida forma = MideConVentanas(detalle, AbreFormulario);
            std::printf("%9d %9d %13.2f %13.2f %7.2fx\n", detalle.clientes, detalle.comprobantes, suelo.segundos,
                        forma.segundos, forma.segundos / suelo.segundos);
            if (detalle.clientes < 20'000)
                continue;
            Resume("The form over 20,000 clients and 50,000 vouchers", forma.segundos / suelo.segundos,
                   " x the bare copy of the rows", "-");
            Resume("The same", forma.segundos, " s", "3 s");
        }
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
