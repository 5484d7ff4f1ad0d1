-- What the system's SQL needs of the server: its functions and operators, in a schema that is looked through before the
-- server's own, and the two small tables of the engine itself. Every statement may be run again over itself.
-- The bodies name everything by its schema: they are read under whatever path the connection has.

CREATE SCHEMA IF NOT EXISTS dialecto;
CREATE SCHEMA IF NOT EXISTS familia;

CREATE TABLE IF NOT EXISTS familia.version_esquema (version integer NOT NULL);
INSERT INTO familia.version_esquema
SELECT 0 WHERE NOT EXISTS (SELECT 1 FROM familia.version_esquema);

-- Who has written to the work tables beside it, in how many transactions, and in which one last.
CREATE TABLE IF NOT EXISTS familia.cambios (
    escritor    integer NOT NULL,
    veces       bigint NOT NULL,
    transaccion bigint NOT NULL
);

-- Once in a transaction: whoever reads sees all of it at once.
CREATE OR REPLACE FUNCTION dialecto.anota_cambio() RETURNS trigger LANGUAGE plpgsql AS $$
BEGIN
    UPDATE cambios SET veces = veces + 1, transaccion = txid_current()
    WHERE escritor = pg_backend_pid() AND transaccion <> txid_current();
    IF NOT FOUND AND NOT EXISTS (SELECT 1 FROM cambios WHERE escritor = pg_backend_pid()) THEN
        INSERT INTO cambios VALUES (pg_backend_pid(), 1, txid_current());
    END IF;
    RETURN NULL;
END $$;

-- Texts are compared code by code, A to Z as a to z. Each is one expression, so that the server puts it in place of the
-- operator and finds the indexes, which are on lower().
CREATE OR REPLACE FUNCTION dialecto.en_orden(text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
    'SELECT pg_catalog.lower($1 COLLATE "C")';
CREATE OR REPLACE FUNCTION dialecto.en_orden(integer) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
    'SELECT $1';
CREATE OR REPLACE FUNCTION dialecto.en_orden(bigint) RETURNS bigint LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
    'SELECT $1';
CREATE OR REPLACE FUNCTION dialecto.en_orden(numeric) RETURNS numeric LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
    'SELECT $1';

DO $crea$
DECLARE
    signo text;
    nombre text;
BEGIN
    FOR nombre, signo IN
        VALUES ('igual', '='), ('distinto', '<>'), ('menor', '<'), ('no_mayor', '<='), ('mayor', '>'),
               ('no_menor', '>=')
    LOOP
        EXECUTE pg_catalog.format(
            'CREATE OR REPLACE FUNCTION dialecto.%I(text, text) RETURNS boolean LANGUAGE sql IMMUTABLE PARALLEL SAFE AS %L',
            nombre,
            pg_catalog.format('SELECT pg_catalog.lower($1 COLLATE "C") OPERATOR(pg_catalog.%s) '
                              'pg_catalog.lower($2 COLLATE "C")', signo));
        IF pg_catalog.to_regoperator('dialecto.' || signo || '(text,text)') IS NULL THEN
            EXECUTE pg_catalog.format(
                'CREATE OPERATOR dialecto.%s (LEFTARG = text, RIGHTARG = text, FUNCTION = dialecto.%I)', signo, nombre);
        END IF;
    END LOOP;
END $crea$;

CREATE OR REPLACE FUNCTION dialecto.mid(text, integer, integer) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
    'SELECT pg_catalog.substr($1, $2, $3)';
CREATE OR REPLACE FUNCTION dialecto.mid$(text, integer, integer) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
    'SELECT pg_catalog.substr($1, $2, $3)';
CREATE OR REPLACE FUNCTION dialecto.len(text) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
    'SELECT pg_catalog.length($1)';

-- The leading number of a text, 0 when there is none. Most texts are a number and nothing else, which is found out in a
-- fifth of the time that cutting one out takes.
CREATE OR REPLACE FUNCTION dialecto.val(text) RETURNS numeric LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
    'SELECT pg_catalog.trim_scale(CASE WHEN $1 OPERATOR(pg_catalog.~) ''^[0-9]+(?:\.[0-9]+)?$'' THEN $1::pg_catalog.numeric
        ELSE coalesce(pg_catalog.substring($1, ''^ *([+-]?(?:[0-9]+\.?[0-9]*|\.[0-9]+))'')::pg_catalog.numeric, 0) END)';
CREATE OR REPLACE FUNCTION dialecto.val(integer) RETURNS numeric LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
    'SELECT $1::pg_catalog.numeric';
CREATE OR REPLACE FUNCTION dialecto.val(bigint) RETURNS numeric LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
    'SELECT $1::pg_catalog.numeric';

CREATE OR REPLACE FUNCTION dialecto.por(text, integer) RETURNS numeric LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
    'SELECT pg_catalog.trim_scale(dialecto.val($1) OPERATOR(pg_catalog.*) $2)';
CREATE OR REPLACE FUNCTION dialecto.une(text, text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
    'SELECT coalesce($1, '''') OPERATOR(pg_catalog.||) coalesce($2, '''')';

CREATE OR REPLACE FUNCTION dialecto.une(text, numeric) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
    'SELECT dialecto.une($1, $2::pg_catalog.text)';
CREATE OR REPLACE FUNCTION dialecto.une(numeric, text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
    'SELECT dialecto.une($1::pg_catalog.text, $2)';

DO $crea$
DECLARE
    signo text;
    funcion text;
    izquierda text;
    derecha text;
BEGIN
    FOR signo, funcion, izquierda, derecha IN
        VALUES ('*', 'por', 'text', 'integer'), ('&', 'une', 'text', 'text'), ('&', 'une', 'text', 'numeric'),
               ('&', 'une', 'numeric', 'text')
    LOOP
        IF pg_catalog.to_regoperator(pg_catalog.format('dialecto.%s(%s,%s)', signo, izquierda, derecha)) IS NULL THEN
            EXECUTE pg_catalog.format('CREATE OPERATOR dialecto.%s (LEFTARG = %s, RIGHTARG = %s, FUNCTION = dialecto.%I)',
                                      signo, izquierda, derecha, funcion);
        END IF;
    END LOOP;
END $crea$;

-- A sum of amounts: exact, in its shortest form, nothing over no rows, and no more digits than the programs reckon with. It
-- and what follows are called for each client of a month: a search path of their own would take four times as long.
CREATE OR REPLACE FUNCTION dialecto.fin_de_suma(numeric) RETURNS numeric LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
BEGIN
    IF (pg_catalog.abs($1) >= 1e20 OR pg_catalog.scale($1) > 16)
        AND pg_catalog.abs($1) * 10::pg_catalog.numeric ^ pg_catalog.scale($1) >= 1e36 THEN
        RAISE numeric_value_out_of_range;
    END IF;
    RETURN pg_catalog.trim_scale($1);
END $$;
CREATE OR REPLACE FUNCTION dialecto.suma_texto(numeric, text) RETURNS numeric LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
    'SELECT CASE WHEN $2 IS NULL THEN $1 ELSE coalesce($1, 0) OPERATOR(pg_catalog.+) dialecto.val($2) END';
CREATE OR REPLACE AGGREGATE dialecto.sum(numeric) (
    SFUNC = pg_catalog.numeric_add, STYPE = numeric, FINALFUNC = dialecto.fin_de_suma,
    COMBINEFUNC = pg_catalog.numeric_add, PARALLEL = SAFE);
CREATE OR REPLACE AGGREGATE dialecto.sum(text) (
    SFUNC = dialecto.suma_texto, STYPE = numeric, FINALFUNC = dialecto.fin_de_suma, PARALLEL = SAFE);

-- What a sum is worth to a client: an amount of money, four decimals at most, ties to even, never below 0. Most sums have no
-- more decimals than that: the server puts the expression in place of the call.
CREATE OR REPLACE FUNCTION dialecto.importe_redondo(numeric) RETURNS text LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
DECLARE
    cortado pg_catalog.numeric := pg_catalog.trunc($1, 4);
    fijo pg_catalog.numeric := pg_catalog.round($1, 4);
BEGIN
    IF pg_catalog.abs($1 - cortado) = 0.00005 AND pg_catalog.mod(cortado * 10000, 2) = 0 THEN
        fijo := cortado;
    END IF;
    IF pg_catalog.abs(fijo) > 922337203685477.5807 THEN
        RAISE numeric_value_out_of_range;
    END IF;
    RETURN CASE WHEN $1 IS NULL OR fijo < 0 THEN '0' ELSE pg_catalog.trim_scale(fijo)::pg_catalog.text END;
END $$;
CREATE OR REPLACE FUNCTION dialecto.importe(numeric) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
    'SELECT CASE WHEN pg_catalog.scale($1) <= 4 AND $1 >= 0 AND $1 < 1e14 THEN pg_catalog.trim_scale($1)::pg_catalog.text
        ELSE dialecto.importe_redondo($1) END';

-- A whole number by a mask of zeros alone: that is all that queries ask for.
CREATE OR REPLACE FUNCTION dialecto.format(text, text) RETURNS text LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE
SET search_path = pg_catalog AS $$
DECLARE
    cifras text;
BEGIN
    IF $2 !~ '^0+$' THEN
        RAISE feature_not_supported USING MESSAGE = 'format: ' || $2;
    END IF;
    IF $1 IS NULL OR $1 !~ '^ *[0-9]+ *$' THEN
        RETURN coalesce($1, '');
    END IF;
    cifras := trim($1)::numeric::text;
    RETURN lpad(cifras, greatest(length(cifras), length($2)), '0');
END $$;
