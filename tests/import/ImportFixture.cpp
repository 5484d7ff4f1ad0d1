#include "import/ImportFixture.h"

#include "data/Transaction.h"
#include "import/ImportFile.h"

namespace xa518::prueba {

namespace {

class Observador final : public ObservadorImportacion {
  public:
    explicit Observador(const std::function<bool(int)>& antesDeLinea) : m_antesDeLinea(antesDeLinea) {}
    bool Sigue(const AvanceImportacion& /*avance*/) override { return m_antesDeLinea(m_lineas++); }

  private:
    const std::function<bool(int)>& m_antesDeLinea;
    int m_lineas = 0;
};

/// Of the client's document and of the voucher; one of each isn't offered here.
void LlenaTipos(const BaseTemporal& base) {
    for (const QString& fila : {u"1 1 08 0"_s, u"3 0 12 0"_s, u"4 1 12 0"_s, u"6 1 11 0"_s, u"7 1 12 5"_s}) {
        const QStringList p = fila.split(u' '); // type, whether it is offered, length, kind of characters
        base.Param(u"044"_s, p[0], Funcion({{46, p[2]}, {82, p[1]}, {128, p[3]}, {130, u"0"_s}}));
    }
    for (const QString& tipo : {u"01"_s, u"03"_s, u"07"_s, u"08"_s, u"12"_s})
        base.Param(u"233"_s, tipo, Funcion({{64, u"1"_s}}));
    base.Param(u"233"_s, u"02"_s, Funcion({{64, u"0"_s}}));
}

QStringList CamposDe(const Cambios& cambios) {
    QStringList campos{u"1"_s,     u"45678901"_s, u""_s,           u"Quispe"_s, u"Rojas"_s,      u"Maria"_s,
                       u"1"_s,     u"123"_s,      u"15/10/2026"_s, u"1"_s,      u"0"_s,          u"1"_s,
                       u"100.5"_s, u"01"_s,       u"F001"_s,       u"77"_s,     u"10/10/2026"_s, u"118.59"_s};
    for (auto cambio = cambios.cbegin(); cambio != cambios.cend(); ++cambio)
        campos[static_cast<int>(cambio.key())] = cambio.value();
    return campos;
}

} // namespace

QString LineaDe(const Cambios& cambios) {
    return CamposDe(cambios).join(u'|') + u'|';
}

QString VentaDe(const Cambios& cambios) {
    return CamposDe(cambios).first(FormatoVentas().Campos()).join(u'|') + u'|';
}

QByteArray Muchas(int cuantas) {
    QStringList lineas;
    for (int i = 1; i <= cuantas; ++i)
        lineas.append(LineaDe({{Campo::NumeroPercepcion, QString::number(i)}}));
    return lineas.join(u'\n').toUtf8();
}

Cambios Empresa(const Cambios& cambios) {
    Cambios todos{{Campo::TipoDoc, u"06"_s},    {Campo::NumDoc, u"20500000008"_s}, {Campo::RazonSocial, u"Acme S.A."_s},
                  {Campo::ApellidoPaterno, {}}, {Campo::ApellidoMaterno, {}},      {Campo::Nombres, {}}};
    todos.insert(cambios);
    return todos;
}

Escenario::Escenario(const QString& periodo, const FormatoImportacion& formato)
    : clave{.ruc = Ruc(u"20990518018"), .periodo = *Periodo::DeTabla(periodo), .formulario = kNumFormulario}
    , m_formato(formato) {
    proceso.baseDatos = Base::Abre(base.Ruta());
    proceso.fechaPrimerIgv = Periodo(2099, 12);
    proceso.rutaRPT = base.Carpeta() + u"/RPT"_s;
    Transaccion transaccion = base->Comienza();
    for (const QString& clase : {u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s})
        base.Param(u"953"_s, clase + u"010909200501"_s,
                   Funcion({{2, u"0.9"_s}, {21, u"0.0"_s + clase}, {31, clase + u".00"_s}}));
    for (const QString& codigo : {u"0228"_s, u"0858"_s, u"0871"_s, u"0872"_s, u"0889"_s})
        base->Ejecuta(u"INSERT INTO ERROR VALUES (?,?)"_s, {codigo, u"De la tabla %1"_s.arg(codigo)});
    LlenaTipos(base);
    transaccion.Confirma();
}

QString Escenario::RutaArchivo() const {
    return base.Carpeta() + u'/' + NombreDeArchivo(clave, m_formato);
}

void Escenario::Escribe(const QByteArray& bytes) const {
    EscribeEn(RutaArchivo(), bytes);
}

ResultadoImportacion Escenario::Importa(const QStringList& lineas) {
    return Importa(lineas.join(u'\n').toUtf8() + '\n');
}

ResultadoImportacion Escenario::Importa(const QByteArray& bytes) {
    Escribe(bytes);
    return Corre();
}

ResultadoImportacion Escenario::Corre(const std::function<bool(int)>& antesDeLinea) {
    Observador observador(antesDeLinea);
    return Transferencia(proceso, clave, m_formato, base.Carpeta(), opciones).Corre(observador);
}

QList<int> Escenario::Cuenta() const {
    const auto filas = [&](const QString& tabla) { return base.Filas(u"SELECT * FROM "_s + tabla).size(); };
    return {static_cast<int>(filas(u"TMPF518PCAB"_s)), static_cast<int>(filas(u"TMPF518PDET"_s)),
            static_cast<int>(filas(u"TMPF518PDETCP"_s))};
}

} // namespace xa518::prueba
