#include "batch/StoredCommands.h"

#include "batch/Arguments.h"
#include "batch/CommandKey.h"
#include "batch/Report.h"
#include "data/Base.h"
#include "declaration/OrderNumber.h"
#include "family/Process.h"
#include "family/StoredDeclaration.h"
#include "family/WorkLock.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// Under which the order's check digits were made.
QString NumeroDeControl(Base& base, const ClaveDeclaracion& clave) {
    Registros cabecera = base.Lee(u"SELECT control FROM HCAB "_s + clave.Condicion(), clave.Valores());
    return cabecera.Siguiente() ? cabecera.Texto(0) : QString();
}

} // namespace

void RegistrarOrden(Proceso& proceso, const Argumentos& argumentos, Informe& informe) {
    Base& base = *proceso.baseDatos;
    const ClaveDeclaracion clave = ClaveDe(proceso, argumentos);
    const TrabajoUnico trabajo(base, clave);
    ExigeDeclaracion(base, clave);
    const NumeroDeOrden orden{
        .control = NumeroDeControl(base, clave), .numero = argumentos.numero, .digitos = argumentos.digitos};
    Exige(ValidaNumeroDeOrden(orden, MomentoOrden::Cierre));
    informe.mensajes.append(RegistraNumeroDeOrden(base, clave, orden.numero, proceso.SuFirma()));
}

void Borrar(Proceso& proceso, const Argumentos& argumentos, Informe& informe) {
    Base& base = *proceso.baseDatos;
    const ClaveDeclaracion clave = ClaveDe(proceso, argumentos);
    const TrabajoUnico trabajo(base, clave);
    ExigeDeclaracion(base, clave);
    EliminaDeclaracion(base, FormularioDe(proceso.formularios, clave.formulario), clave, proceso.SuFirma());
    const QString cual = clave.enviada ? u"La copia enviada %1"_s.arg(clave.correl) : u"La declaración registrada"_s;
    informe.mensajes.append({Icono::Informacion,
                             u"%1 de %2 para %3 fue eliminada."_s.arg(cual, clave.ruc.Texto(), clave.periodo.Texto()),
                             {}});
}

} // namespace xa518
