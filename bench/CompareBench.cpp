#include "BareBase.h"
#include "Measure.h"
#include "SavedSample.h"

#include "form518/Comparison.h"
#include "form518/WorkTables.h"
#include "values/Progress.h"

#include <cstdio>
#include <memory>
#include <stdexcept>

using namespace xa518;
using namespace xa518::medida;
using namespace Qt::StringLiterals;

namespace {

constexpr Detalle kMes{20'000, 50'000};

/// The saved rows become those of a sent copy, and stand in the work tables as well.
std::shared_ptr<TallerGuardado> ConCopia() {
    auto taller = std::make_shared<TallerGuardado>(kMes);
    Base& base = *taller->base;
    Graba(base);
    const QString clave = u"Doc_id_d, tip_doc_d, periodo, Formulario, tip_doc_per, num_doc_per, "_s;
    const auto envia = [&](const QString& tabla, const QString& columnas) {
        base.Ejecuta(u"INSERT INTO H%1 (%2%3, correl) SELECT %2%3, '1' FROM %1"_s.arg(tabla, clave, columnas));
    };
    envia(u"F518PCAB"_s, u"des_razon, mto_base_p, mto_imp_p"_s);
    envia(u"F518PDET"_s, u"num_serie_cp, num_cp, cp_fact, lista_clie, med_pago, fec_emision_cp, mto_base_p, mto_imp_p,"
                         " por_tasa_p"_s);
    envia(u"F518PDETCP"_s,
          u"num_serie_cp, num_cp, tip_doc_detcp, num_serie_detcp, num_detcp, fec_emis_detcp, mto_detcp"_s);
    return taller;
}

/// Every row of both sides is read once, through the engine's own interface.
Medida MideSuelo() {
    return Mide([] {
        const auto taller = ConCopia();
        return [taller] {
            BaseDesnuda base(taller->base.Ruta());
            for (const char* tabla :
                 {"HF518PCAB", "HF518PDET", "HF518PDETCP", "TMPF518PCAB", "TMPF518PDET", "TMPF518PDETCP"}) {
                const auto filas = base.Prepara(QByteArray("SELECT * FROM ").append(tabla).constData());
                while (sqlite3_step(filas.get()) == SQLITE_ROW)
                    for (int i = 0; i < sqlite3_column_count(filas.get()); ++i)
                        (void)sqlite3_column_text(filas.get(), i);
            }
        };
    });
}

/// `distintas` of every ten vouchers aren't as they were sent.
Medida MideComparacion(int distintas) {
    return Mide([&] {
        const auto taller = ConCopia();
        taller->base->Ejecuta(u"UPDATE TMPF518PDET SET fec_emision_cp = '06/10/2026' WHERE val(num_cp) % 10 < ?"_s,
                              {distintas});
        return [taller, distintas] {
            PedidoDeComparacion pedido{.copia = {.clave = kClave, .fecha = {}, .control = {}},
                                       .abierta = ValoresDeCasillas()};
            pedido.copia.clave.enviada = true;
            pedido.copia.clave.correl = u"1"_s;
            SinAvance nadie;
            if (Compara(*taller->base, pedido, nadie).clientes.isEmpty() != (distintas == 0))
                throw std::runtime_error("another difference than was made");
        };
    });
}

} // namespace

int main() {
    try {
        const auto medidas = MideDeATurnos(3, {MideSuelo, [] { return MideComparacion(0); },
                                               [] { return MideComparacion(1); }, [] { return MideComparacion(10); }});
        std::printf("  differ    seconds  to floor  peak MB\n");
        for (size_t i = 1; i < medidas.size(); ++i)
            std::printf("%8s %10.2f %8.2fx %8.0f\n",
                        i == 1   ? "none"
                        : i == 2 ? "1 in 10"
                                 : "all",
                        medidas[i].procesador, medidas[i].procesador / medidas[0].procesador,
                        static_cast<double>(medidas[i].memoriaKb) / 1024);
        Resume("Comparing 50,000 vouchers a side, one in ten changed", medidas[2].procesador / medidas[0].procesador,
               " x reading them", "10");
        Resume("The same with every voucher changed", medidas[3].procesador, " s of processor", "3");
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
