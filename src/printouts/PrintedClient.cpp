#include "printouts/PrintedClient.h"

#include "data/Base.h"
#include "form518/ClientName.h"
#include "form518/DetailColumns.h"
#include "printouts/JoinedRow.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

enum class ColumnaImpresa : int { TipoDoc, Numero, Razon, Paterno, Materno, Nombres, MontoBase, MontoImp };

} // namespace

QStringList ClienteImpreso::Columnas() {
    using Dato = DatoCliente;
    return ColumnasDe<Dato>({Dato::TipoDoc, Dato::NumDoc, Dato::Razon, Dato::ApellidoP, Dato::ApellidoM, Dato::Nombres,
                             Dato::MontoBase, Dato::Percepcion});
}

ClienteImpreso ClienteImpreso::De(const Registros& fila, int primera) {
    const auto texto = [&](ColumnaImpresa columna) { return fila.Texto(primera + static_cast<int>(columna)); };
    using enum ColumnaImpresa;
    return {static_cast<int>(fila.Entero(primera + static_cast<int>(TipoDoc))), texto(Numero),
            NombreCliente(texto(Razon), texto(Paterno), texto(Materno), texto(Nombres)), texto(MontoBase),
            texto(MontoImp)};
}

ClienteImpreso ClienteImpreso::De(const FilaUnida& fila) {
    const auto texto = [&](ColumnaImpresa columna) { return fila.Campo(static_cast<size_t>(columna)).toString(); };
    using enum ColumnaImpresa;
    return {texto(TipoDoc).toInt(), texto(Numero),
            NombreCliente(texto(Razon), texto(Paterno), texto(Materno), texto(Nombres)), texto(MontoBase),
            texto(MontoImp)};
}

} // namespace xa518
