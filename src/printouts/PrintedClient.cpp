#include "printouts/PrintedClient.h"

#include "data/Base.h"
#include "form518/ClientName.h"
#include "form518/DetailColumns.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

enum ColumnaCliente { TipoDoc, Numero, Razon, Paterno, Materno, Nombres, MontoBase, MontoImp };

} // namespace

QString ClienteImpreso::Columnas() {
    using enum DatoCliente;
    return ListaDe<DatoCliente>({TipoDoc, NumDoc, Razon, ApellidoP, ApellidoM, Nombres, MontoBase, Percepcion});
}

ClienteImpreso ClienteImpreso::De(const Registros& fila, int primera) {
    const auto texto = [&](ColumnaCliente columna) { return fila.Texto(primera + columna); };
    return {static_cast<int>(fila.Entero(primera + TipoDoc)), texto(Numero),
            NombreCliente(texto(Razon), texto(Paterno), texto(Materno), texto(Nombres)), texto(MontoBase),
            texto(MontoImp)};
}

} // namespace xa518
