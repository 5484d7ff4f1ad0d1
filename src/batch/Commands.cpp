#include "batch/Commands.h"

#include "batch/CommandKey.h"
#include "batch/ExitCode.h"
#include "batch/ExportCommand.h"
#include "batch/ImportCommand.h"
#include "batch/PdfOutput.h"
#include "batch/ProgressLine.h"
#include "batch/Session.h"
#include "batch/StoredCommands.h"
#include "data/Catalog.h"
#include "declaration/ClientGrid.h"
#include "declaration/Consistency.h"
#include "declaration/Save.h"
#include "declaration/StoredBoxes.h"
#include "declaration/TaxPeriod.h"
#include "family/OfferedDeclarants.h"
#include "family/StoredDeclaration.h"
#include "family/WorkLock.h"
#include "family/WorkSeat.h"
#include "form518/WorkTables.h"
#include "values/Text.h"

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

const QString kGrabando = u"Grabando la declaración"_s;
const QString kImprimiendo = u"Imprimiendo"_s;

/// The form offers no other banks.
void ExigeBanco(Base& base, const QString& banco) {
    const QList<BancoOfrecido> bancos = BancosOfrecidos(base);
    if (!banco.isEmpty() && std::none_of(bancos.begin(), bancos.end(),
                                         [&](const BancoOfrecido& ofrecido) { return ofrecido.codigo == banco; }))
        throw RechazaCon(u"El banco «%1» no está en el catálogo."_s.arg(banco));
}

/// What the command line gives goes over what is stored. Interest and prior payments keep their stored value when they
/// aren't given; the amount to pay follows the debt.
void LlenaMontos(Declaracion& declaracion, const Argumentos& argumentos) {
    Montos& montos = declaracion.montos;
    if (argumentos.pagosPrevios)
        montos.Cambia(402, TextoAlSalir(402, *argumentos.pagosPrevios));
    if (argumentos.interes)
        montos.Cambia(404, TextoAlSalir(404, *argumentos.interes));
    montos.Cambia(410, argumentos.importe ? TextoAlSalir(410, *argumentos.importe) : montos.Texto(405));
}

void LlenaPago(Declaracion& declaracion, const Argumentos& argumentos) {
    if (argumentos.efectivo)
        declaracion.pago = {.forma = FormaDePago::Efectivo};
    if (argumentos.cheque)
        declaracion.pago = {.forma = FormaDePago::Cheque,
                            .banco = Recorta(argumentos.banco).toString(),
                            .numeroCheque = Recorta(*argumentos.cheque).toString()};
    declaracion.pago.importe = declaracion.montos.ImportePagar();
    if (argumentos.rectifica)
        declaracion.rectifica = Rectificacion::Si;
    else if (declaracion.rectifica == Rectificacion::SinResponder)
        declaracion.rectifica = Rectificacion::No;
}

/// Their file is a copy of what is told anyway: when it can't be written the declaration stands all the same.
/// `codigo` is the exit code that tells of them.
void AnotaInconsistencias(Proceso& proceso, const Declaracion& declaracion, int codigo, Informe& informe) {
    informe.inconsistencias = Inconsistencias(declaracion);
    if (!informe.inconsistencias->isEmpty())
        informe.codigo = codigo;
    const QString ruta = RutaMens(proceso.sysPath, proceso.numFormulario);
    try {
        EscribeMens(ruta, *informe.inconsistencias);
        if (!informe.inconsistencias->isEmpty())
            informe.archivos.append(ruta);
    } catch (const Error& error) {
        if (informe.codigo == kSalidaBien)
            informe.codigo = kSalidaIncompleta;
        informe.mensajes.append({Icono::Exclamacion, error.Texto(), {}});
        informe.detalle = error.Detalle();
    }
}

void Importar(Proceso& proceso, const Argumentos& argumentos, LineaDeAvance& avance, Informe& informe) {
    const ClaveDeclaracion clave = ClaveDe(proceso, argumentos);
    const TrabajoUnico trabajo(*proceso.baseDatos, clave);
    CargaTrabajo(proceso, argumentos, clave, avance, informe);
}

/// The administration takes one original for a month; what comes later rectifies it. Asked before anything is written.
void ExigeUnOriginal(Base& base, const Declaracion& declaracion, const Argumentos& argumentos) {
    if (argumentos.otroOriginal || argumentos.rectifica || declaracion.rectifica == Rectificacion::Si)
        return;
    const QString copia = UltimaCopiaEnviada(base, declaracion.clave);
    if (!copia.isEmpty())
        throw RechazaCon(u"La declaración de %1 para %2 ya fue enviada (copia %3). Si ésta la rectifica o sustituye, "
                         "agregue --rectifica; si es otro original, --otro-original."_s.arg(argumentos.ruc,
                                                                                            argumentos.periodo, copia));
}

/// The work tables go back to what is stored, so that nothing of the files stays.
void DejaSinGrabar(Base& base, const ClaveDeclaracion& clave, Informe& informe) {
    TablasTrabajo(base).Reconstruye(clave);
    informe.codigo = kSalidaLineas;
    informe.mensajes.append(
        {Icono::Critico, u"Líneas rechazadas: %1. No se ha grabado nada."_s.arg(informe.rechazados.value_or(0)), {}});
}

void Declarar(Proceso& proceso, const Argumentos& argumentos, LineaDeAvance& avance, Informe& informe) {
    Base& base = *proceso.baseDatos;
    Declaracion declaracion;
    declaracion.clave = ClaveDe(proceso, argumentos);
    Exige(RechazaRucDeOcho(declaracion.clave.ruc));
    ExigeBanco(base, argumentos.banco);
    const TrabajoUnico trabajo(base, declaracion.clave);
    const EstadoGuardado conocida = EstadoGuardado::De(base, declaracion.clave);
    CargaCasillas(base, declaracion);
    ExigeUnOriginal(base, declaracion, argumentos);
    CargaTrabajo(proceso, argumentos, declaracion.clave, avance, informe);
    if (argumentos.todoONada && informe.rechazados.value_or(0) > 0)
        return DejaSinGrabar(base, declaracion.clave, informe);
    if (argumentos.pdf)
        PreparaCarpeta(*argumentos.pdf);
    RefrescaTotales(base, declaracion);
    LlenaMontos(declaracion, argumentos);
    LlenaPago(declaracion, argumentos);
    avance.Dice(kGrabando);
    const ResultadoGrabacion grabacion = GrabaDeclaracion(base, declaracion, conocida, proceso.SuFirma());
    Exige(grabacion.veredicto);
    AnotaInconsistencias(proceso, declaracion, argumentos.todoONada ? kSalidaInconsistencias : kSalidaObservaciones,
                         informe);
    informe.estado = grabacion.estado;
    informe.casillas = grabacion.casillas;
    informe.mensajes += grabacion.mensajes;
    if (argumentos.pdf) {
        avance.Dice(kImprimiendo);
        DejaPdf(proceso, declaracion.clave, *argumentos.pdf, informe);
    }
}

void Imprimir(Proceso& proceso, const Argumentos& argumentos, LineaDeAvance& avance, Informe& informe) {
    avance.Dice(kImprimiendo);
    ImprimeEnPdf(proceso, ClaveDe(proceso, argumentos), argumentos.anexos, *argumentos.pdf, informe);
}

void Validar(Proceso& proceso, const Argumentos& argumentos, Informe& informe) {
    Base& base = *proceso.baseDatos;
    Declaracion declaracion;
    declaracion.clave = ClaveDe(proceso, argumentos);
    ExigeDeclaracion(base, declaracion.clave);
    CargaCasillas(base, declaracion);
    if (const std::optional<Mensaje> aviso = AvisoDeImporte(declaracion))
        informe.mensajes.append(*aviso);
    AnotaInconsistencias(proceso, declaracion, kSalidaObservaciones, informe);
    if (informe.inconsistencias->isEmpty())
        informe.mensajes.append(SinInconsistencias());
    informe.casillas = CasillasGuardadas(base, declaracion.clave);
}

bool Escribe(Orden orden) {
    return orden == Orden::Importar || orden == Orden::Declarar || orden == Orden::RegistrarOrden ||
           orden == Orden::Borrar;
}

void ExigeQueSeEscriba(const Base& base) {
    if (const QString motivo = PorQueNoSeEscribe(base); !motivo.isEmpty())
        throw RechazaCon(motivo);
}

/// The same declarations as the module's pickers, or those of them that are asked for: all of them for a user of kind
/// "0", otherwise the user's own.
QList<FilaLista> LeeLista(Proceso& proceso, const Argumentos& argumentos) {
    Base& base = *proceso.baseDatos;
    const bool enviadas = argumentos.enviadas;
    ConsultaSql consulta{
        u"SELECT A.DOC_ID_D, B.NOMBRE, A.PERIODO, A.ESTADO, A.RECTIFICA%1 FROM %2 AS A, CONT AS B "
        "WHERE A.DOC_ID_D=B.DOC_ID_D AND A.TIP_DOC_D=6 AND B.TIP_DOC_D=6 AND A.FORMULARIO=?"_s.arg(
            enviadas ? u", A.CORREL, A.CONTROL, A.NORDEN, A.FEC_ENV"_s : QString(), enviadas ? u"HCAB"_s : u"CAB"_s),
        {proceso.numFormulario}};
    for (const auto& [condicion, valor] :
         {std::pair(u" AND A.DOC_ID_D=?"_s, argumentos.ruc), std::pair(u" AND A.PERIODO=?"_s, argumentos.periodo)}) {
        if (valor.isEmpty())
            continue;
        consulta.texto += condicion;
        consulta.valores.append(valor);
    }
    LimitaAlUsuario(consulta, base, proceso.sysUser);
    Registros filas = base.Lee(consulta.texto + u" ORDER BY A.PERIODO DESC, A.DOC_ID_D"_s,
                               {consulta.valores.begin(), consulta.valores.end()});
    QList<FilaLista> lista;
    while (filas.Siguiente()) {
        FilaLista fila{filas.Texto(0), filas.Texto(1), filas.Texto(2), filas.Texto(3), filas.Texto(4), {}, {}, {}, {}};
        if (enviadas) {
            fila.correl = filas.Texto(5);
            fila.control = filas.Texto(6);
            fila.norden = filas.Texto(7);
            fila.fecEnv = filas.Texto(8);
        }
        lista.append(fila);
    }
    return lista;
}

} // namespace

void EjecutaOrden(Proceso& proceso, const Argumentos& argumentos, LineaDeAvance& avance, Informe& informe) {
    if (Escribe(argumentos.orden))
        ExigeQueSeEscriba(*proceso.baseDatos);
    // Work tables of its own, on a server; what a crash left in them is of no use to a run that begins anew.
    if (argumentos.orden == Orden::Importar || argumentos.orden == Orden::Declarar)
        (void)OcupaPuesto(proceso);
    switch (argumentos.orden) {
    case Orden::Importar: return Importar(proceso, argumentos, avance, informe);
    case Orden::Declarar: return Declarar(proceso, argumentos, avance, informe);
    case Orden::Validar: return Validar(proceso, argumentos, informe);
    case Orden::Imprimir: return Imprimir(proceso, argumentos, avance, informe);
    case Orden::Exportar: return Exportar(proceso, argumentos, informe);
    case Orden::RegistrarOrden: return RegistrarOrden(proceso, argumentos, informe);
    case Orden::Borrar: return Borrar(proceso, argumentos, informe);
    case Orden::Listar: informe.declaraciones = LeeLista(proceso, argumentos);
    }
}

} // namespace xa518
