#include "BareBase.h"
#include "ImportSample.h"
#include "Measure.h"

#include "data/Process.h"
#include "import/ImportRun.h"
#include "import/Formats.h"
#include "platform/Clock.h"
#include "support/TemporaryBase.h"

#include <QTemporaryDir>

#include <cstdio>
#include <memory>
#include <stdexcept>

using namespace xa518;
using namespace xa518::medida;
using namespace Qt::StringLiterals;

namespace {

const QString kRuc = u"20990518018"_s;
const QString kPeriodo = u"202610"_s;

void Exige(bool condicion, const char* motivo) {
    if (!condicion)
        throw std::runtime_error(motivo);
}

class SinNadie final : public ObservadorImportacion {
    bool Sigue(const AvanceImportacion& /*avance*/) override { return true; }
};

/// What an import needs around it: a base with the shipped tables, rates, and a folder with the file.
struct Taller {
    explicit Taller(const Tamanio& tamanio) {
        for (const QString& clase : {u"1"_s, u"2"_s, u"6"_s})
            base.Param(u"953"_s, clase + u"010909200501"_s,
                       prueba::Funcion({{2, u"0.0200"_s}, {21, u"0.0200000"_s}, {31, u"2.00"_s}}));
        Muestra(tamanio).EscribeArchivo(base.Carpeta() + u"/0518"_s + kRuc + kPeriodo + u".TXT"_s);
    }
    prueba::BaseTemporal base;
};

void Importa(const QString& carpeta, const QString& ruta, const Tamanio& tamanio) {
    const RelojFijo reloj(QDateTime(QDate(2026, 11, 1), QTime(9, 0)));
    Proceso proceso(reloj);
    proceso.baseDatos = Base::Abre(ruta);
    proceso.docDeclarante = kRuc;
    proceso.periodoDeclarado = kPeriodo;
    proceso.fechaPrimerIgv = u"209912"_s;
    proceso.rutaRPT = carpeta + u"/RPT"_s;
    SinNadie nadie;
    const ResultadoImportacion resultado = Transferencia(proceso, FormatoPercepciones(), carpeta).Corre(nadie);
    Exige(resultado.fin == FinImportacion::Completa, "the import did not end well");
    Exige(resultado.transferidos == tamanio.lineas && resultado.rechazados == 0, "the import refused lines");
}

/// The same look-ups and inserts through the engine's own interface, with nothing read and nothing checked.
class Suelo {
  public:
    explicit Suelo(const QString& ruta) : m_base(ruta) {
        m_cliente = m_base.Prepara("SELECT count(*) FROM TMPF518PCAB WHERE tip_doc_per=? AND num_doc_per=?");
        m_comprobante =
            m_base.Prepara("SELECT fec_emision_cp, mto_base_p FROM TMPF518PDET WHERE tip_doc_per=? AND num_doc_per=? "
                           "AND num_serie_cp=? AND num_cp=? AND tip_cp=''");
        m_altaCliente = m_base.Prepara("INSERT INTO TMPF518PCAB (tip_doc_per, num_doc_per, des_razon, des_apellido_p, "
                                       "des_apellido_m, des_nombres) VALUES (?,?,?,?,?,?)");
        m_altaComprobante = m_base.Prepara(
            "INSERT INTO TMPF518PDET (tip_doc_per, num_doc_per, num_serie_cp, num_cp, tip_cp, cp_fact, lista_clie, "
            "med_pago, fec_emision_cp, mto_base_p, mto_imp_p, por_tasa_p) VALUES (?,?,?,?,?,?,?,?,?,?,?,?)");
        m_altaPago = m_base.Prepara("INSERT INTO TMPF518PDETCP VALUES (?,?,?,?,?,?,?,?,?)");
    }

    void Corre(const std::vector<LineaMuestra>& lineas) {
        m_base.Pide("BEGIN IMMEDIATE");
        for (const LineaMuestra& linea : lineas)
            Escribe(linea);
        m_base.Pide("COMMIT");
    }

  private:
    using Sentencia = BaseDesnuda::Sentencia;

    /// Runs a statement over a client's type and the given texts; tells whether the first row, if any, counts as found.
    bool Pasa(const Sentencia& sentencia, int tipo, std::initializer_list<std::string_view> textos) {
        int lugar = 1;
        sqlite3_bind_int(sentencia.get(), lugar++, tipo);
        for (const std::string_view texto : textos)
            sqlite3_bind_text(sentencia.get(), lugar++, texto.data(), static_cast<int>(texto.size()), SQLITE_STATIC);
        const int paso = sqlite3_step(sentencia.get());
        m_base.Exige(paso == SQLITE_ROW || paso == SQLITE_DONE);
        const bool hallada = paso == SQLITE_ROW && sqlite3_column_text(sentencia.get(), 0)[0] != '0';
        sqlite3_reset(sentencia.get());
        return hallada;
    }

    void Escribe(const LineaMuestra& l) {
        const int tipo = l.empresa ? 6 : 1;
        if (!Pasa(m_cliente, tipo, {l.documento})) {
            if (l.empresa)
                Pasa(m_altaCliente, tipo, {l.documento, "COMERCIAL DEL VALLE Y HERMANOS S.A.C.", " ", " ", " "});
            else
                Pasa(m_altaCliente, tipo, {l.documento, "MARIA ELENA ROJAS QUISPE", "QUISPE", "ROJAS", "MARIA ELENA"});
        }
        if (!Pasa(m_comprobante, tipo, {l.documento, "0001", l.comprobante}))
            Pasa(m_altaComprobante, tipo,
                 {l.documento, "0001", l.comprobante, "", "1", "1", "0", "15/10/2026", l.monto, l.percepcion, "2.00"});
        Pasa(m_altaPago, tipo, {l.documento, "0001", l.comprobante, "01", "F001", l.pago, "10/10/2026", l.monto});
    }

    BaseDesnuda m_base;
    Sentencia m_cliente;
    Sentencia m_comprobante;
    Sentencia m_altaCliente;
    Sentencia m_altaComprobante;
    Sentencia m_altaPago;
};

Medida MideSuelo(const Tamanio& tamanio) {
    return Mide([&] {
        const auto base = std::make_shared<prueba::BaseTemporal>();
        const auto lineas = std::make_shared<std::vector<LineaMuestra>>();
        const Muestra muestra(tamanio);
        for (int i = 0; i < tamanio.lineas; ++i)
            lineas->push_back(muestra.Linea(i));
        return [base, lineas] { Suelo(base->Ruta()).Corre(*lineas); };
    });
}

Medida MideImportacion(const Tamanio& tamanio) {
    return Mide([&] {
        const auto taller = std::make_shared<Taller>(tamanio);
        return [taller, tamanio] { Importa(taller->base.Carpeta(), taller->base.Ruta(), tamanio); };
    });
}

Medida Informa(const Tamanio& tamanio) {
    const Medida suelo = MideSuelo(tamanio);
    const Medida importacion = MideImportacion(tamanio);
    std::printf("%9d %9.2f %9.2f %8.2fx %9.2f %9.2f %8.2fx %9.1f %9.0f\n", tamanio.lineas, suelo.segundos,
                importacion.segundos, importacion.segundos / suelo.segundos, suelo.procesador, importacion.procesador,
                importacion.procesador / suelo.procesador, importacion.segundos / tamanio.lineas * 1e6,
                static_cast<double>(importacion.memoriaKb) / 1024);
    std::fflush(stdout);
    return importacion;
}

void ComparaTamanios(Orden orden) {
    std::printf("%s\n    lines   floor s  import s    ratio floor cpu import cpu   ratio   us/line   peak MB\n",
                orden == Orden::Emision ? "In the order of issue, clients scattered" : "Client after client");
    const Medida menor = Informa({100'000, 20'000, 50'000, orden});
    const Medida mayor = Informa({1'000'000, 200'000, 500'000, orden});
    std::printf("ten times the lines: %.2f times the time\n\n", mayor.segundos / menor.segundos);
}

} // namespace

/// With an argument only the small file in the order of issue is measured.
int main(int argc, char**) {
    try {
        if (argc > 1) {
            Informa({100'000, 20'000, 50'000});
            return 0;
        }
        ComparaTamanios(Orden::Emision);
        ComparaTamanios(Orden::Cliente);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
