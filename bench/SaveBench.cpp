#include "BareBase.h"
#include "Measure.h"
#include "SavedSample.h"

#include "declaration/ClientGrid.h"
#include "declaration/StoredBoxes.h"
#include "form518/WorkClients.h"
#include "form518/WorkTables.h"

#include <cstdio>
#include <memory>
#include <stdexcept>

using namespace xa518;
using namespace xa518::medida;
using namespace Qt::StringLiterals;

namespace {

void Abre(Base& base) {
    Declaracion declaracion;
    declaracion.clave = kClave;
    TablasTrabajo(base).Reconstruye(kClave);
    CargaCasillas(base, declaracion);
    RefrescaTotales(base, declaracion);
    const ListaLarga clientes(base, SqlClientes());
    if (clientes.Lee(0, clientes.Filas()).empty())
        throw std::runtime_error("no clients");
}

/// Copies the rows of one table to another through the engine's own interface, row by row, with the look-up that the
/// save makes for each client and nothing computed.
class Suelo {
  public:
    explicit Suelo(const QString& ruta) : m_base(ruta) {}

    void Corre() {
        m_base.Pide("BEGIN IMMEDIATE");
        CopiaClientes();
        Copia("SELECT tip_doc_per,num_doc_per,num_serie_cp,num_cp,cp_fact,lista_clie,med_pago,fec_emision_cp,"
              "mto_base_p,mto_imp_p,por_tasa_p FROM TMPF518PDET WHERE tip_cp='' ORDER BY rowid",
              "INSERT INTO F518PDET VALUES (6,'20990518018','202610','0518',?,?,?,?,?,?,?,?,?,?,?,'000000')");
        Copia("SELECT * FROM TMPF518PDETCP ORDER BY rowid",
              "INSERT INTO F518PDETCP VALUES (6,'20990518018','202610','0518',?,?,?,?,?,?,?,?,?,'000000')");
        m_base.Pide("COMMIT");
    }

  private:
    using Sentencia = BaseDesnuda::Sentencia;

    void Alta(const Sentencia& origen, const Sentencia& alta) {
        for (int i = 0; i < sqlite3_column_count(origen.get()); ++i)
            sqlite3_bind_value(alta.get(), i + 1, sqlite3_column_value(origen.get(), i));
        m_base.Exige(sqlite3_step(alta.get()) == SQLITE_DONE);
        sqlite3_reset(alta.get());
    }
    void Copia(const char* leer, const char* escribir) {
        const Sentencia origen = m_base.Prepara(leer);
        const Sentencia alta = m_base.Prepara(escribir);
        while (sqlite3_step(origen.get()) == SQLITE_ROW)
            Alta(origen, alta);
    }
    void CopiaClientes() {
        const Sentencia origen =
            m_base.Prepara("SELECT A.tip_doc_per,A.num_doc_per,A.des_razon,A.mto_base_p,A.mto_imp_p "
                           "FROM TMPF518PCAB A CROSS JOIN PARAM B WHERE B.Numero='044' "
                           "AND B.Argumento=A.tip_doc_per ORDER BY A.rowid");
        const Sentencia cuenta =
            m_base.Prepara("SELECT count(*) FROM TMPF518PDET WHERE tip_doc_per=? AND num_doc_per=?");
        const Sentencia alta = m_base.Prepara("INSERT INTO F518PCAB (tip_doc_d,Doc_id_d,periodo,Formulario,tip_doc_per,"
                                              "num_doc_per,des_razon,mto_base_p,mto_imp_p,ctd_docs,ind_ruc,cNumero) "
                                              "VALUES (6,'20990518018','202610','0518',?,?,?,?,?,?,1,'000000')");
        while (sqlite3_step(origen.get()) == SQLITE_ROW) {
            sqlite3_bind_value(cuenta.get(), 1, sqlite3_column_value(origen.get(), 0));
            sqlite3_bind_value(cuenta.get(), 2, sqlite3_column_value(origen.get(), 1));
            sqlite3_step(cuenta.get());
            sqlite3_bind_int(alta.get(), 6, sqlite3_column_int(cuenta.get(), 0));
            sqlite3_reset(cuenta.get());
            Alta(origen, alta);
        }
    }

    BaseDesnuda m_base;
};

Medida MideSuelo(const Detalle& detalle) {
    return Mide([&] {
        const auto taller = std::make_shared<TallerGuardado>(detalle);
        return [taller] { Suelo(taller->base.Ruta()).Corre(); };
    });
}

Medida MideGrabacion(const Detalle& detalle) {
    return Mide([&] {
        const auto taller = std::make_shared<TallerGuardado>(detalle);
        return [taller] { Graba(*taller->base); };
    });
}

Medida MideApertura(const Detalle& detalle) {
    return Mide([&] {
        const auto taller = std::make_shared<TallerGuardado>(detalle);
        Graba(*taller->base);
        return [taller] { Abre(*taller->base); };
    });
}

struct Comparada {
    double grabacion = 0; ///< to the floor
    double apertura = 0;  ///< seconds of processor
};

Comparada Informa(const Detalle& detalle) {
    const Medida suelo = MideSuelo(detalle);
    const Medida grabacion = MideGrabacion(detalle);
    const Medida apertura = MideApertura(detalle);
    std::printf("%9d %9.2f %9.2f %8.2fx %8.2fx %9.0f %9.2f %8.2fx\n", detalle.comprobantes, suelo.segundos,
                grabacion.segundos, grabacion.segundos / suelo.segundos, grabacion.procesador / suelo.procesador,
                static_cast<double>(grabacion.memoriaKb) / 1024, apertura.segundos, apertura.segundos / suelo.segundos);
    std::fflush(stdout);
    return {grabacion.segundos / suelo.segundos, apertura.procesador};
}

} // namespace

int main() {
    try {
        std::printf(" vouchers   floor s    save s    ratio cpu ratio   peak MB    open s  to floor\n");
        const Comparada menor = Informa({5'000, 12'500});
        const Comparada mayor = Informa({20'000, 50'000});
        Resume("Save of 50,000 vouchers with checksums", mayor.grabacion, " x the floor", "4");
        Resume("Opening four times the rows", mayor.apertura / menor.apertura, " x the time", "linear: 4");
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
