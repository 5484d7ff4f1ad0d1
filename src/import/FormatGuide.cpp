#include "import/FormatGuide.h"

#include "import/Formats.h"
#include "import/LineReader.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

QString GuiaDe(const FormatoImportacion& formato) {
    QString guia = u"\n%1: 0518<RUC><AAAAMM>%2.TXT, %3 campos por línea\n\n"_s.arg(formato.titulo.toString())
                       .arg(formato.finDeNombre)
                       .arg(formato.Campos());
    int numero = 0;
    for (const DescripcionCampo& campo : formato.descripciones)
        guia +=
            u"%1  %2 (obligatorio: %3)\n    %4\n"_s.arg(++numero, 2).arg(campo.nombre, campo.obligatorio, campo.forma);
    return guia + u"\nPor ejemplo:\n\n"_s + formato.ejemplo.toString() + u'\n';
}

} // namespace

QStringList ReglasDeArchivo() {
    return {
        u"Texto sin encabezado, un registro por línea; las líneas terminan en LF o en CR LF."_s,
        u"Cada campo termina con el separador «|», también el último: una línea tiene tantos separadores como campos."_s,
        u"A los campos se les quitan los blancos de los lados y se pasan a mayúsculas; la Ñ de los nombres se guarda "
        "como N."_s,
        u"En los nombres valen letras, también con tilde o diéresis, dígitos, blancos y . , - & ' \" ( ) / + * # : ; _ "
        "@ % °"_s,
        u"El archivo se lee como UTF-8 cuando lo es entero, y si no como Windows-1252 («ANSI»); la marca inicial de "
        "UTF-8 y un Ctrl-Z final se pasan por alto."_s,
        u"El archivo se rechaza entero, sin importar nada, si alguna línea tiene otro número de separadores, aunque "
        u"esté "
        "en blanco; si alguna tiene texto después de su último separador; si alguna pasa de %1 caracteres; y si está "
        "en "
        "UTF-16 («Unicode»)."_s.arg(LectorLineas::kLargoMaximo),
        u"Cualquier otra falta rechaza sólo su línea."_s,
    };
}

QString GuiaDeFormatos() {
    return u"Archivos de importación de la declaración 0518\n\n"_s + ReglasDeArchivo().join(u'\n') + u'\n' +
           GuiaDe(FormatoPercepciones()) + GuiaDe(FormatoVentas());
}

} // namespace xa518
