#include "batch/Usage.h"

namespace xa518 {

using namespace Qt::StringLiterals;

const QString& TextoDeUso() {
    static const QString uso =
        u"Uso: xa518-lote importar --ruc RUC --periodo AAAAMM [--percepciones RUTA] [--ventas RUTA]\n"
        "                         [--errores ARCHIVO] [--probar]\n"
        "     xa518-lote declarar --ruc RUC --periodo AAAAMM [--percepciones RUTA] [--ventas RUTA]\n"
        "                         [--errores ARCHIVO] [--todo-o-nada]\n"
        "                         [--pagos-previos N] [--interes N] [--importe N]\n"
        "                         [--efectivo | --cheque NUM --banco COD]\n"
        "                         [--rectifica | --otro-original] [--pdf DIR]\n"
        "     xa518-lote validar  --ruc RUC --periodo AAAAMM\n"
        "     xa518-lote imprimir --ruc RUC --periodo AAAAMM [--enviada CORREL] [--anexos] --pdf ARCHIVO\n"
        "     xa518-lote exportar --ruc RUC --periodo AAAAMM [--enviada CORREL] --carpeta DIR\n"
        "     xa518-lote registrar-orden --ruc RUC --periodo AAAAMM --enviada CORREL --numero N --digitos DD\n"
        "     xa518-lote borrar   --ruc RUC --periodo AAAAMM [--enviada CORREL]\n"
        "     xa518-lote listar   [--enviadas] [--ruc RUC] [--periodo AAAAMM]\n"
        "     xa518-lote --formato\n"_s;
    return uso;
}

const QString& TextoDeAyuda() {
    static const QString ayuda =
        TextoDeUso() + u"\nLas reglas de la declaración 0518, sin ventana.\n"
                       "\nÓrdenes:\n"
                       "  importar   carga la declaración en las tablas de trabajo y agrega los archivos\n"
                       "  declarar   lo mismo, y además calcula, valida y graba la declaración\n"
                       "  validar    dice las inconsistencias de una declaración registrada\n"
                       "  imprimir   deja en PDF una declaración registrada, o una copia enviada\n"
                       "  exportar   deja su detalle como archivos de importación de las dos clases\n"
                       "  registrar-orden  guarda el número de orden que recibió una copia enviada\n"
                       "  borrar     elimina una declaración registrada, o una copia enviada\n"
                       "  listar     muestra las declaraciones registradas, o las enviadas\n"
                       "\nOpciones:\n"
                       "  --ruc RUC            número del declarante; con listar, sólo las suyas\n"
                       "  --periodo AAAAMM     período tributario; con listar, sólo las de ese período\n"
                       "  --percepciones RUTA  el archivo 0518<RUC><AAAAMM>.TXT, o la carpeta que lo tiene\n"
                       "  --ventas RUTA        lo mismo con el de ventas al contado, 0518<RUC><AAAAMM>VC.TXT\n"
                       "  --errores ARCHIVO    deja ahí las líneas rechazadas, con su campo y su motivo, como CSV\n"
                       "  --probar             revisa los archivos sin guardar nada, tampoco .Log ni .Err\n"
                       "  --todo-o-nada        no graba la declaración si se rechaza alguna línea\n"
                       "  --pagos-previos N    casilla 402\n"
                       "  --interes N          casilla 404\n"
                       "  --importe N          casilla 410; sin ella toma la 405\n"
                       "  --efectivo           paga en efectivo\n"
                       "  --cheque NUM         paga con cheque, junto con --banco\n"
                       "  --banco COD          banco del cheque\n"
                       "  --rectifica          la declaración rectifica o sustituye a otra\n"
                       "  --otro-original      graba otro original de un mes ya enviado\n"
                       "  --pdf DIR            con declarar: carpeta de los PDF de la declaración y su anexo\n"
                       "  --pdf ARCHIVO        con imprimir: el PDF que se escribe\n"
                       "  --enviada CORREL     la copia enviada con ese número\n"
                       "  --anexos             también el anexo, tras la declaración\n"
                       "  --carpeta DIR        carpeta en la que quedan los archivos exportados\n"
                       "  --numero N           número de orden, de 8 a 10 dígitos\n"
                       "  --digitos DD         sus dos dígitos de verificación\n"
                       "  --enviadas           las declaraciones enviadas\n"
                       "  --json               imprime un objeto JSON, también cuando algo falla\n"
                       "  --hoy DD/MM/AAAA     trabaja como si fuera ese día\n"
                       "  --formato            dice cómo son los archivos de importación, campo por campo\n"
                       "  -h, --help           muestra esta ayuda\n"
                       "  -v, --version        muestra la versión\n"
                       "\nCódigos de salida: 0 hecho y sin observaciones; 1 hecho, con líneas rechazadas o\n"
                       "inconsistencias; 2 rechazado, no se ha escrito nada, salvo el motivo en --errores; 3 falló\n"
                       "la base o un archivo; 4 hecho, menos una parte: el anexo de una declaración sin clientes,\n"
                       "Mens.txt, o lo que no cabe en los archivos exportados. Con --todo-o-nada, en lugar del 1:\n"
                       "5 hubo líneas rechazadas y no se grabó nada; 6 grabada, con inconsistencias.\n"_s;
    return ayuda;
}

} // namespace xa518
