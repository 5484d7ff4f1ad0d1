#include "printouts/PrintedClient.h"

#include "data/Base.h"
#include "form518/ClientName.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

enum ColumnaCliente { TipoDoc, Numero, Razon, Paterno, Materno, Nombres, MontoBase, MontoImp };

} // namespace

QString ClienteImpreso::Columnas() {
    return u"tip_doc_per, num_doc_per, des_razon, des_apellido_p, des_apellido_m, des_nombres, mto_base_p, mto_imp_p"_s;
}

ClienteImpreso ClienteImpreso::De(const Registros& fila, int primera) {
    const auto texto = [&](ColumnaCliente columna) { return fila.Texto(primera + columna); };
    return {static_cast<int>(fila.Entero(primera + TipoDoc)), texto(Numero),
            NombreCliente(texto(Razon), texto(Paterno), texto(Materno), texto(Nombres)), texto(MontoBase),
            texto(MontoImp)};
}

} // namespace xa518
