-- The seats: each program that works on declarations has the work tables of a schema of its own. A seat is taken as long
-- as its connection holds the lock of its number; one that nobody holds keeps its rows until a program of the same user
-- and machine takes it again, or somebody clears it. The functions run with the rights of the tables' owner, so that
-- nobody else needs to make schemas. Every statement may be run again over itself.

CREATE TABLE IF NOT EXISTS familia.puestos (
    numero        integer GENERATED ALWAYS AS IDENTITY PRIMARY KEY,
    esquema       text NOT NULL UNIQUE,
    cuenta        text NOT NULL,
    usuario       text NOT NULL,
    equipo        text NOT NULL,
    programa      text NOT NULL,
    version       integer NOT NULL,
    desde         timestamptz NOT NULL,
    pid           integer NOT NULL,
    -- The declaration that it has open, and how that stood in the tables when it was opened.
    ruc           text,
    periodo       text,
    formulario    text,
    correl        text,
    abierta_desde timestamptz,
    estado        text
);

-- The text of the print-outs, which every seat can see; the file is a local copy.
CREATE TABLE IF NOT EXISTS familia.informes (
    archivo text COLLATE "C" NOT NULL,
    parte   integer NOT NULL,
    hojas   integer NOT NULL,
    suma    text NOT NULL,
    texto   text NOT NULL
);
CREATE UNIQUE INDEX IF NOT EXISTS informes_clave ON familia.informes (lower(archivo COLLATE "C"), parte);

-- Whether a connection holds the lock of a seat.
CREATE OR REPLACE FUNCTION familia.pid_del_puesto(el_numero integer) RETURNS integer LANGUAGE sql STABLE
SET search_path = pg_catalog AS
    'SELECT pid FROM pg_locks WHERE locktype = ''advisory'' AND granted AND classid = 22594 AND objid = $1::oid
        AND objsubid = 2 AND database = (SELECT oid FROM pg_database WHERE datname = current_database()) LIMIT 1';

-- Makes the work tables of a seat as those of the family stand, with the rights of the account that works there.
CREATE OR REPLACE FUNCTION familia.haz_tablas_del_puesto(el_esquema text, la_cuenta text) RETURNS void
LANGUAGE plpgsql SET search_path = pg_catalog, pg_temp AS $$
DECLARE
    tabla text;
BEGIN
    EXECUTE format('CREATE SCHEMA %I', el_esquema);
    EXECUTE format('CREATE TABLE %I.cambios (LIKE familia.cambios)', el_esquema);
    FOR tabla IN SELECT tablename FROM pg_tables WHERE schemaname = 'familia' AND tablename LIKE 'tmp%' LOOP
        EXECUTE format('CREATE TABLE %I.%I (LIKE familia.%I INCLUDING ALL)', el_esquema, tabla, tabla);
        EXECUTE format('CREATE TRIGGER anota_cambio AFTER INSERT OR UPDATE OR DELETE OR TRUNCATE ON %I.%I '
                       'FOR EACH STATEMENT EXECUTE FUNCTION dialecto.anota_cambio()', el_esquema, tabla);
    END LOOP;
    EXECUTE format('GRANT USAGE ON SCHEMA %I TO %I', el_esquema, la_cuenta);
    EXECUTE format('GRANT SELECT, INSERT, UPDATE, DELETE, TRUNCATE ON ALL TABLES IN SCHEMA %I TO %I', el_esquema,
                   la_cuenta);
END $$;
REVOKE ALL ON FUNCTION familia.haz_tablas_del_puesto(text, text) FROM PUBLIC;

-- The name of a seat's schema: one that was left behind, otherwise a new one. One that was left with other tables than
-- the present ones is cleared first, and so is one whose tables a restored copy of the base doesn't have.
CREATE OR REPLACE FUNCTION familia.toma_puesto(el_usuario text, el_equipo text, el_programa text) RETURNS text
LANGUAGE plpgsql SECURITY DEFINER SET search_path = pg_catalog, pg_temp AS $$
DECLARE
    la_version integer := (SELECT version FROM familia.version_esquema);
    uno familia.puestos;
BEGIN
    IF NOT has_table_privilege(session_user, 'familia.cab', 'SELECT') THEN
        RAISE insufficient_privilege;
    END IF;
    PERFORM pg_advisory_xact_lock(22594, 0);
    FOR uno IN
        SELECT * FROM familia.puestos
        WHERE usuario = el_usuario AND equipo = el_equipo AND programa = el_programa AND cuenta = session_user
        ORDER BY ruc IS NULL, numero
    LOOP
        CONTINUE WHEN NOT pg_try_advisory_lock(22594, uno.numero);
        IF uno.version <> la_version OR to_regnamespace(uno.esquema) IS NULL THEN
            EXECUTE format('DROP SCHEMA IF EXISTS %I CASCADE', uno.esquema);
            PERFORM familia.haz_tablas_del_puesto(uno.esquema, session_user);
            UPDATE familia.puestos SET version = la_version, ruc = NULL WHERE numero = uno.numero;
        END IF;
        EXECUTE format('DELETE FROM %I.cambios', uno.esquema); -- whoever had read it is gone
        UPDATE familia.puestos
        SET desde = clock_timestamp(), pid = pg_backend_pid()
        WHERE numero = uno.numero;
        RETURN uno.esquema;
    END LOOP;
    INSERT INTO familia.puestos (esquema, cuenta, usuario, equipo, programa, version, desde, pid)
    VALUES ('puesto_' || gen_random_uuid(), session_user, el_usuario, el_equipo, el_programa, la_version,
            clock_timestamp(), pg_backend_pid())
    RETURNING * INTO uno;
    uno.esquema := 'puesto_' || uno.numero;
    UPDATE familia.puestos SET esquema = uno.esquema WHERE numero = uno.numero;
    PERFORM pg_advisory_lock(22594, uno.numero);
    PERFORM familia.haz_tablas_del_puesto(uno.esquema, session_user);
    RETURN uno.esquema;
END $$;

-- Takes a seat again on another connection of the same program; false when it isn't its own any more.
CREATE OR REPLACE FUNCTION familia.retoma_puesto(el_esquema text, su_pid integer) RETURNS boolean
LANGUAGE plpgsql SECURITY DEFINER SET search_path = pg_catalog, pg_temp AS $$
DECLARE
    uno familia.puestos;
BEGIN
    SELECT * INTO uno FROM familia.puestos WHERE esquema = el_esquema AND cuenta = session_user;
    IF NOT FOUND THEN
        RETURN false;
    END IF;
    PERFORM pg_advisory_lock(22594, uno.numero);
    UPDATE familia.puestos SET pid = pg_backend_pid()
    WHERE esquema = el_esquema AND pid = su_pid;
    IF NOT FOUND THEN
        PERFORM pg_advisory_unlock(22594, uno.numero);
        RETURN false;
    END IF;
    RETURN true;
END $$;

-- Clears a seat with its rows; false while somebody is in it, or when it is gone.
CREATE OR REPLACE FUNCTION familia.quita_puesto(el_esquema text) RETURNS boolean
LANGUAGE plpgsql SECURITY DEFINER SET search_path = pg_catalog, pg_temp AS $$
DECLARE
    uno familia.puestos;
BEGIN
    IF NOT has_table_privilege(session_user, 'familia.cab', 'INSERT') THEN
        RAISE insufficient_privilege;
    END IF;
    SELECT * INTO uno FROM familia.puestos WHERE esquema = el_esquema;
    IF NOT FOUND OR familia.pid_del_puesto(uno.numero) IS NOT NULL
       OR NOT pg_try_advisory_xact_lock(22594, uno.numero) THEN
        RETURN false;
    END IF;
    EXECUTE format('DROP SCHEMA IF EXISTS %I CASCADE', uno.esquema);
    DELETE FROM familia.puestos WHERE numero = uno.numero;
    RETURN true;
END $$;

-- What the seat of this connection has open from now on; nothing with an empty number.
CREATE OR REPLACE FUNCTION familia.anota_abierta(el_ruc text, el_periodo text, el_formulario text, el_correl text,
                                                 el_estado text) RETURNS void
LANGUAGE plpgsql SECURITY DEFINER SET search_path = pg_catalog, pg_temp AS $$
BEGIN
    UPDATE familia.puestos
    SET ruc = nullif(el_ruc, ''), periodo = el_periodo, formulario = el_formulario, correl = el_correl,
        abierta_desde = clock_timestamp(), estado = el_estado
    WHERE pid = pg_backend_pid() AND familia.pid_del_puesto(numero) = pg_backend_pid();
END $$;

-- The seats as they are; `vivo` when somebody is in it, `propio` for that of this connection. Times in milliseconds.
CREATE OR REPLACE FUNCTION familia.los_puestos() RETURNS TABLE (
    esquema text, usuario text, equipo text, programa text, desde bigint, vivo integer, propio integer, ruc text,
    periodo text, formulario text, correl text, abierta_desde bigint, estado text, ahora bigint)
LANGUAGE sql SECURITY DEFINER SET search_path = pg_catalog, pg_temp AS
    'SELECT esquema, usuario, equipo, programa, (extract(epoch FROM desde) * 1000)::bigint,
        (su_pid IS NOT NULL AND su_pid = pid)::integer, coalesce((su_pid = pg_backend_pid())::integer, 0),
        coalesce(ruc, ''''), coalesce(periodo, ''''), coalesce(formulario, ''''), coalesce(correl, ''''),
        (extract(epoch FROM coalesce(abierta_desde, desde)) * 1000)::bigint, coalesce(estado, ''''),
        (extract(epoch FROM clock_timestamp()) * 1000)::bigint
     FROM (SELECT p.*, familia.pid_del_puesto(p.numero) AS su_pid FROM familia.puestos AS p) AS todos ORDER BY numero';
