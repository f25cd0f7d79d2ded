#include "core/jet/FuncionesPostgres.h"

#include "core/jet/Catalogo.h"
#include "core/jet/ErroresMotor.h"

namespace jet {

namespace {

constexpr int Version = 2;

// The library. Plain SQL functions the planner inlines wherever a function can be one; PL/pgSQL only for
// raising an error and for the few that walk a text (a mask, a pattern, a number's digits). A function
// that may raise is VOLATILE, so that the planner never folds a failure out of a branch the row never
// takes. @E<n>@ is the engine's description of error n; @VERSION@ the library's version.
const char* const Cuerpo = R"SQL(
SET check_function_bodies = false;
CREATE COLLATION IF NOT EXISTS jettext (provider = icu, locale = 'es-u-ks-level2', deterministic = false);

CREATE OR REPLACE FUNCTION jet_version() RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS 'SELECT @VERSION@';

CREATE OR REPLACE FUNCTION jet_falla(numero integer, descripcion text, tipo anyelement) RETURNS anyelement
LANGUAGE plpgsql VOLATILE PARALLEL SAFE AS $$
BEGIN
  RAISE EXCEPTION USING MESSAGE = 'JET:' || numero || ':' || coalesce(descripcion, '');
END $$;

-- Whole ten-thousandths, half to even.
CREATE OR REPLACE FUNCTION jet_par(x numeric) RETURNS numeric LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT CASE WHEN abs(x - trunc(x)) = 0.5 THEN 2 * round(x / 2) ELSE round(x) END $$;

-- Texts of typed values, as the dialect's & writes them.
CREATE OR REPLACE FUNCTION jet_str_sino(x integer) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT CASE WHEN x IS NULL THEN NULL WHEN x <> 0 THEN 'Verdadero' ELSE 'Falso' END $$;
CREATE OR REPLACE FUNCTION jet_str_moneda(x numeric) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT trim_scale(round(x / 10000, 4))::text $$;
CREATE OR REPLACE FUNCTION jet_str_fecha(x timestamp) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT CASE WHEN x::time = '00:00' THEN to_char(x, 'DD/MM/YYYY')
              WHEN x::date = DATE '1899-12-30' THEN to_char(x, 'HH24:MI:SS')
              ELSE to_char(x, 'DD/MM/YYYY HH24:MI:SS') END $$;
-- A floating number to `p` significant digits, with no zeros of more; E notation beyond them.
CREATE OR REPLACE FUNCTION jet_str_num(x double precision, p integer) RETURNS text
LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
DECLARE n numeric; e integer; m numeric; r text;
BEGIN
  IF x IS NULL THEN RETURN NULL; END IF;
  IF x = 0 OR x = 'NaN'::float8 OR x = 'Infinity'::float8 OR x = '-Infinity'::float8 THEN RETURN '0'; END IF;
  n := abs(x)::numeric;
  e := floor(log(n))::integer;
  m := round(n / power(10::numeric, e), p - 1);
  IF m >= 10 THEN m := round(m / 10, p - 1); e := e + 1; END IF;
  IF e < -4 OR e >= p THEN
    r := trim_scale(m)::text || 'E' || CASE WHEN e < 0 THEN '-' ELSE '+' END || lpad(abs(e)::text, 2, '0');
  ELSE
    r := trim_scale(round(n, p - 1 - e))::text;
  END IF;
  RETURN CASE WHEN x < 0 THEN '-' || r ELSE r END;
END $$;

-- A text read whole as a number (blanks, sign, "$" and thousands commas allowed), else a mismatch.
CREATE OR REPLACE FUNCTION jet_numerico(x text) RETURNS numeric LANGUAGE sql VOLATILE PARALLEL SAFE AS $$
  SELECT CASE WHEN x IS NULL THEN NULL
              WHEN translate(x COLLATE "C", ' $,', '') ~ '^[+-]?([0-9]+\.?[0-9]*|\.[0-9]+)([eE][+-]?[0-9]+)?$'
                THEN translate(x, ' $,', '')::numeric
              ELSE jet_falla(3464, '@E3464@', NULL::numeric) END $$;
CREATE OR REPLACE FUNCTION jet_num(x text) RETURNS double precision LANGUAGE sql VOLATILE PARALLEL SAFE AS $$
  SELECT jet_numerico(x)::double precision $$;

-- Money in ten-thousandths from a number or a text; beyond 64 bits is the language's overflow.
CREATE OR REPLACE FUNCTION jet_acur_num(x numeric) RETURNS numeric LANGUAGE sql VOLATILE PARALLEL SAFE AS $$
  SELECT CASE WHEN x NOT BETWEEN -9223372036854775808 AND 9223372036854775807 THEN jet_falla(6, '', NULL::numeric) ELSE x END $$;
CREATE OR REPLACE FUNCTION jet_acur(x double precision) RETURNS numeric LANGUAGE sql VOLATILE PARALLEL SAFE AS $$
  SELECT jet_acur_num(jet_par(x::numeric * 10000)) $$;
CREATE OR REPLACE FUNCTION jet_acur(x timestamp) RETURNS numeric LANGUAGE sql VOLATILE PARALLEL SAFE AS $$
  SELECT jet_acur(jet_serial(x)) $$;
CREATE OR REPLACE FUNCTION jet_acur_texto(x text) RETURNS numeric LANGUAGE sql VOLATILE PARALLEL SAFE AS $$
  SELECT jet_acur_num(jet_par(jet_numerico(x) * 10000)) $$;
CREATE OR REPLACE FUNCTION jet_mulcur(a numeric, b numeric) RETURNS numeric LANGUAGE sql VOLATILE PARALLEL SAFE AS $$
  SELECT jet_acur_num(jet_par(a * b / 10000)) $$;
CREATE OR REPLACE FUNCTION jet_mulcur(VARIADIC x numeric[]) RETURNS numeric LANGUAGE plpgsql VOLATILE PARALLEL SAFE AS $$
DECLARE r numeric := x[1]; i integer;
BEGIN
  FOR i IN 2 .. coalesce(array_length(x, 1), 0) LOOP r := jet_mulcur(r, x[i]); END LOOP;
  RETURN r;
END $$;
CREATE OR REPLACE FUNCTION jet_promcur(suma numeric, cuenta bigint) RETURNS numeric LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT jet_par(suma / NULLIF(cuenta, 0)) $$;
-- Int (0), Fix (1) or Round (2, to `decimales` decimals) of an amount in ten-thousandths.
CREATE OR REPLACE FUNCTION jet_redcur(x numeric, modo integer, decimales double precision DEFAULT 0) RETURNS numeric
LANGUAGE sql VOLATILE PARALLEL SAFE AS $$
  SELECT CASE WHEN modo = 0 THEN floor(x / 10000) * 10000
              WHEN modo = 1 THEN trunc(x / 10000) * 10000
              WHEN decimales < 0 THEN jet_falla(3464, '@E3464@', NULL::numeric)
              WHEN decimales >= 4 THEN x
              ELSE jet_par(x / power(10::numeric, 4 - trunc(decimales)::integer)) * power(10::numeric, 4 - trunc(decimales)::integer) END $$;

-- Dates. The serial number counts days from 30/12/1899.
CREATE OR REPLACE FUNCTION jet_serial(x timestamp) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT extract(epoch FROM (x - TIMESTAMP '1899-12-30 00:00:00'))::double precision / 86400 $$;
CREATE OR REPLACE FUNCTION jet_lee_fecha(x double precision) RETURNS timestamp(0) LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT (TIMESTAMP '1899-12-30 00:00:00' + x * interval '1 day')::timestamp(0) $$;
CREATE OR REPLACE FUNCTION jet_lee_fecha(x timestamp) RETURNS timestamp(0) LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT x::timestamp(0) $$;
-- A date written as the program writes them: yyyy-mm-dd, dd/mm/yyyy or dd-mm-yyyy, with or without a
-- time; or a time alone, on the zero date.
CREATE OR REPLACE FUNCTION jet_lee_fecha(x text) RETURNS timestamp(0) LANGUAGE plpgsql VOLATILE PARALLEL SAFE AS $$
DECLARE t text COLLATE "C" := btrim(x); p text[];
BEGIN
  IF x IS NULL THEN RETURN NULL; END IF;
  p := regexp_match(t, '^(\d{4})-(\d{1,2})-(\d{1,2})(?:[ T](\d{1,2}):(\d{2})(?::(\d{2}))?)?$');
  IF p IS NULL THEN
    p := regexp_match(t, '^(\d{1,2})[/-](\d{1,2})[/-](\d{2,4})(?: +(\d{1,2}):(\d{2})(?::(\d{2}))?)?$');
    IF p IS NOT NULL THEN
      p := ARRAY[CASE WHEN length(p[3]) = 2 THEN (CASE WHEN p[3]::int < 30 THEN 2000 ELSE 1900 END + p[3]::int)::text
                      ELSE p[3] END, p[2], p[1], p[4], p[5], p[6]];
    END IF;
  END IF;
  IF p IS NULL THEN
    p := regexp_match(t, '^()()()(\d{1,2}):(\d{2})(?::(\d{2}))?$');
    IF p IS NOT NULL THEN p[1] := '1899'; p[2] := '12'; p[3] := '30'; END IF;
  END IF;
  IF p IS NULL THEN PERFORM jet_falla(3464, '@E3464@', NULL::integer); END IF;
  BEGIN
    RETURN make_timestamp(p[1]::int, p[2]::int, p[3]::int, coalesce(p[4], '0')::int, coalesce(p[5], '0')::int,
                          coalesce(p[6], '0')::double precision);
  EXCEPTION WHEN datetime_field_overflow OR invalid_datetime_format THEN
    PERFORM jet_falla(3464, '@E3464@', NULL::integer);
  END;
END $$;
CREATE OR REPLACE FUNCTION jet_cdate(x timestamp) RETURNS timestamp(0) LANGUAGE sql VOLATILE PARALLEL SAFE AS $$
  SELECT CASE WHEN x IS NULL THEN jet_falla(94, '', NULL::timestamp(0)) ELSE x::timestamp(0) END $$;
CREATE OR REPLACE FUNCTION jet_now() RETURNS timestamp(0) LANGUAGE sql STABLE PARALLEL SAFE AS $$
  SELECT LOCALTIMESTAMP(0) $$;
CREATE OR REPLACE FUNCTION jet_date() RETURNS timestamp(0) LANGUAGE sql STABLE PARALLEL SAFE AS $$
  SELECT CURRENT_DATE::timestamp(0) $$;
CREATE OR REPLACE FUNCTION jet_year(x timestamp) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT extract(year FROM x)::integer $$;
CREATE OR REPLACE FUNCTION jet_month(x timestamp) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT extract(month FROM x)::integer $$;
CREATE OR REPLACE FUNCTION jet_day(x timestamp) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT extract(day FROM x)::integer $$;
CREATE OR REPLACE FUNCTION jet_hour(x timestamp) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT extract(hour FROM x)::integer $$;
CREATE OR REPLACE FUNCTION jet_minute(x timestamp) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT extract(minute FROM x)::integer $$;
CREATE OR REPLACE FUNCTION jet_second(x timestamp) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT floor(extract(second FROM x))::integer $$;
CREATE OR REPLACE FUNCTION jet_weekday(x timestamp) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT extract(dow FROM x)::integer + 1 $$;
CREATE OR REPLACE FUNCTION jet_fecha_mas(x timestamp, dias double precision) RETURNS timestamp(0)
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT (x + dias * interval '1 day')::timestamp(0) $$;
CREATE OR REPLACE FUNCTION jet_fecha_dif(a timestamp, b timestamp) RETURNS double precision
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT extract(epoch FROM (a - b))::double precision / 86400 $$;

-- Numbers.
CREATE OR REPLACE FUNCTION jet_int(x double precision) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
  'SELECT floor(x)';
CREATE OR REPLACE FUNCTION jet_fix(x double precision) RETURNS double precision LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
  'SELECT trunc(x)';
CREATE OR REPLACE FUNCTION jet_sgn(x double precision) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
  'SELECT sign(x)::integer';
CREATE OR REPLACE FUNCTION jet_round(x double precision, decimales double precision DEFAULT 0) RETURNS double precision
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT CASE WHEN decimales = 0 THEN round(x) ELSE round(x * power(10, trunc(decimales))) / power(10, trunc(decimales)) END $$;
CREATE OR REPLACE FUNCTION jet_divent(a double precision, b double precision) RETURNS double precision
LANGUAGE sql VOLATILE PARALLEL SAFE AS $$
  SELECT CASE WHEN round(b) = 0 THEN jet_falla(11, '', NULL::double precision) ELSE trunc(round(a) / round(b)) END $$;
CREATE OR REPLACE FUNCTION jet_mod(a double precision, b double precision) RETURNS double precision
LANGUAGE sql VOLATILE PARALLEL SAFE AS $$
  SELECT CASE WHEN round(b) = 0 THEN jet_falla(11, '', NULL::double precision)
              ELSE round(a) - trunc(round(a) / round(b)) * round(b) END $$;
CREATE OR REPLACE FUNCTION jet_pot(a double precision, b double precision) RETURNS double precision
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS 'SELECT power(a, b)';

-- The conversion functions: Null is an invalid use of Null (94); out of range, the language's overflow (6).
CREATE OR REPLACE FUNCTION jet_nonulo(x double precision) RETURNS double precision LANGUAGE sql VOLATILE PARALLEL SAFE AS $$
  SELECT CASE WHEN x IS NULL THEN jet_falla(94, '', NULL::double precision) ELSE x END $$;
CREATE OR REPLACE FUNCTION jet_entre(x double precision, minimo double precision, maximo double precision) RETURNS integer
LANGUAGE sql VOLATILE PARALLEL SAFE AS $$
  SELECT CASE WHEN round(x) BETWEEN minimo AND maximo THEN round(x)::integer ELSE jet_falla(6, '', NULL::integer) END $$;
CREATE OR REPLACE FUNCTION jet_cint(x double precision) RETURNS integer LANGUAGE sql VOLATILE PARALLEL SAFE AS
  'SELECT jet_entre(jet_nonulo(x), -32768, 32767)';
CREATE OR REPLACE FUNCTION jet_cint(x text) RETURNS integer LANGUAGE sql VOLATILE PARALLEL SAFE AS
  'SELECT jet_cint(jet_num(x))';
CREATE OR REPLACE FUNCTION jet_clng(x double precision) RETURNS integer LANGUAGE sql VOLATILE PARALLEL SAFE AS
  'SELECT jet_entre(jet_nonulo(x), -2147483648, 2147483647)';
CREATE OR REPLACE FUNCTION jet_clng(x text) RETURNS integer LANGUAGE sql VOLATILE PARALLEL SAFE AS
  'SELECT jet_clng(jet_num(x))';
CREATE OR REPLACE FUNCTION jet_cdbl(x double precision) RETURNS double precision LANGUAGE sql VOLATILE PARALLEL SAFE AS
  'SELECT jet_nonulo(x)';
CREATE OR REPLACE FUNCTION jet_cdbl(x text) RETURNS double precision LANGUAGE sql VOLATILE PARALLEL SAFE AS
  'SELECT jet_nonulo(jet_num(x))';
CREATE OR REPLACE FUNCTION jet_csng(x double precision) RETURNS real LANGUAGE sql VOLATILE PARALLEL SAFE AS
  'SELECT jet_nonulo(x)::real';
CREATE OR REPLACE FUNCTION jet_csng(x text) RETURNS real LANGUAGE sql VOLATILE PARALLEL SAFE AS
  'SELECT jet_nonulo(jet_num(x))::real';
CREATE OR REPLACE FUNCTION jet_ccur(x double precision) RETURNS numeric LANGUAGE sql VOLATILE PARALLEL SAFE AS
  'SELECT jet_acur(jet_nonulo(x))';
CREATE OR REPLACE FUNCTION jet_ccur(x text) RETURNS numeric LANGUAGE sql VOLATILE PARALLEL SAFE AS $$
  SELECT CASE WHEN x IS NULL THEN jet_falla(94, '', NULL::numeric) ELSE jet_acur_texto(x) END $$;
CREATE OR REPLACE FUNCTION jet_cbool(x double precision) RETURNS integer LANGUAGE sql VOLATILE PARALLEL SAFE AS $$
  SELECT CASE WHEN jet_nonulo(x) <> 0 THEN -1 ELSE 0 END $$;
CREATE OR REPLACE FUNCTION jet_cbool(x text) RETURNS integer LANGUAGE sql VOLATILE PARALLEL SAFE AS $$
  SELECT CASE WHEN x IS NULL THEN jet_falla(94, '', NULL::integer)
              WHEN lower(btrim(x)) IN ('verdadero', 'true') THEN -1
              WHEN lower(btrim(x)) IN ('falso', 'false') THEN 0
              ELSE jet_cbool(jet_num(x)) END $$;
-- The leading number of a text, blanks skipped anywhere; 0 when there is none.
CREATE OR REPLACE FUNCTION jet_val(x text) RETURNS double precision LANGUAGE sql VOLATILE PARALLEL SAFE AS $$
  SELECT CASE WHEN x IS NULL THEN jet_falla(94, '', NULL::double precision)
              ELSE coalesce((regexp_match(translate(x COLLATE "C", E' \t\n\r', ''),
                             '^([+-]?(?:[0-9]+\.?[0-9]*|\.[0-9]+)(?:[eEdD][+-]?[0-9]+)?)'))[1]::double precision, 0) END $$;

-- Texts. Length and positions count characters; InStr is case-blind, Replace is not.
CREATE OR REPLACE FUNCTION jet_mid(x text, inicio double precision, largo double precision DEFAULT NULL)
RETURNS text LANGUAGE sql VOLATILE PARALLEL SAFE AS $$
  SELECT CASE WHEN x IS NULL THEN NULL
              WHEN round(inicio) < 1 OR round(largo) < 0 THEN jet_falla(3464, '@E3464@', NULL::text)
              WHEN largo IS NULL THEN substr(x, round(inicio)::integer)
              ELSE substr(x, round(inicio)::integer, round(largo)::integer) END $$;
CREATE OR REPLACE FUNCTION jet_left(x text, n double precision) RETURNS text LANGUAGE sql VOLATILE PARALLEL SAFE AS $$
  SELECT CASE WHEN round(n) < 0 THEN jet_falla(3464, '@E3464@', NULL::text) ELSE left(x, round(n)::integer) END $$;
CREATE OR REPLACE FUNCTION jet_right(x text, n double precision) RETURNS text LANGUAGE sql VOLATILE PARALLEL SAFE AS $$
  SELECT CASE WHEN round(n) < 0 THEN jet_falla(3464, '@E3464@', NULL::text)
              WHEN round(n) = 0 THEN '' ELSE right(x, round(n)::integer) END $$;
CREATE OR REPLACE FUNCTION jet_len(x text) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS 'SELECT length(x)';
CREATE OR REPLACE FUNCTION jet_trim(x text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$SELECT btrim(x, ' ')$$;
CREATE OR REPLACE FUNCTION jet_ltrim(x text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$SELECT ltrim(x, ' ')$$;
CREATE OR REPLACE FUNCTION jet_rtrim(x text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$SELECT rtrim(x, ' ')$$;
CREATE OR REPLACE FUNCTION jet_ucase(x text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
  'SELECT upper(x COLLATE "und-x-icu")';
CREATE OR REPLACE FUNCTION jet_lcase(x text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
  'SELECT lower(x COLLATE "und-x-icu")';
CREATE OR REPLACE FUNCTION jet_instr(x text, y text) RETURNS integer LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT CASE WHEN y = '' THEN 1 ELSE strpos(lower(x COLLATE "und-x-icu"), lower(y COLLATE "und-x-icu")) END $$;
CREATE OR REPLACE FUNCTION jet_instr(inicio double precision, x text, y text) RETURNS integer
LANGUAGE sql VOLATILE PARALLEL SAFE AS $$
  SELECT CASE WHEN x IS NULL OR y IS NULL THEN NULL
              WHEN round(inicio) < 1 THEN jet_falla(3464, '@E3464@', NULL::integer)
              WHEN round(inicio) > length(x) THEN 0
              WHEN y = '' THEN round(inicio)::integer
              ELSE (SELECT CASE WHEN p = 0 THEN 0 ELSE p + round(inicio)::integer - 1 END
                    FROM strpos(lower(substr(x, round(inicio)::integer) COLLATE "und-x-icu"), lower(y COLLATE "und-x-icu")) AS p)
         END $$;
CREATE OR REPLACE FUNCTION jet_replace(x text, y text, z text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
  SELECT CASE WHEN x IS NULL THEN NULL ELSE replace(x COLLATE "C", coalesce(y, '') COLLATE "C", coalesce(z, '')) END $$;
CREATE OR REPLACE FUNCTION jet_space(n double precision) RETURNS text LANGUAGE sql VOLATILE PARALLEL SAFE AS $$
  SELECT CASE WHEN n > 100000000 THEN jet_falla(3035, '@E3035@', NULL::text) ELSE repeat(' ', round(n)::integer) END $$;

-- LIKE: * any run, ? one character, # one digit, [abc] [a-z] [!abc]; case-blind in every alphabet.
-- The pattern as an anchored regular expression; Null when it is malformed.
-- The pattern is read in a deterministic collation: the caller's may refuse substring searches.
CREATE OR REPLACE FUNCTION jet_patron(patron text) RETURNS text LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
DECLARE p text COLLATE "C" := patron; r text COLLATE "C" := '^'; i integer := 1; n integer := length(patron);
  c text COLLATE "C"; cierre integer; clase text COLLATE "C"; k integer; x text COLLATE "C";
BEGIN
  WHILE i <= n LOOP
    c := substr(p, i, 1);
    IF c = '*' THEN r := r || '.*';
    ELSIF c = '?' THEN r := r || '.';
    ELSIF c = '#' THEN r := r || '[[:digit:]]';
    ELSIF c = '[' THEN
      cierre := strpos(substr(p, i + 1), ']');
      IF cierre = 0 THEN RETURN NULL; END IF;
      clase := substr(p, i + 1, cierre - 1);
      r := r || '[';
      IF left(clase, 1) = '!' THEN r := r || '^'; clase := substr(clase, 2); END IF;
      IF clase = '' THEN RETURN NULL; END IF;
      FOR k IN 1 .. length(clase) LOOP
        x := substr(clase, k, 1);
        IF x IN ('\', '^', '[', ']') OR (x = '-' AND (k = 1 OR k = length(clase))) THEN r := r || '\'; END IF;
        r := r || x;
      END LOOP;
      r := r || ']';
      i := i + cierre;
    ELSIF strpos('\.^$|?*+()[]{}', c) > 0 THEN r := r || '\' || c;
    ELSE r := r || c;
    END IF;
    i := i + 1;
  END LOOP;
  RETURN r || '$';
END $$;
CREATE OR REPLACE FUNCTION jet_like(x text, p text) RETURNS boolean LANGUAGE sql VOLATILE PARALLEL SAFE AS $$
  SELECT CASE WHEN x IS NULL OR p IS NULL THEN NULL
              WHEN jet_patron(p) IS NULL THEN jet_falla(3075, '@E3075@', NULL::boolean)
              ELSE (x COLLATE "und-x-icu") ~* jet_patron(p) END $$;

-- Format: the masks the program writes. Dates: d dd ddd dddd m mm mmm mmmm yy yyyy h hh n nn s ss (m after
-- h is minutes), "long date"; numbers: 0 # , . with literals around them; anything else as the text form.
CREATE OR REPLACE FUNCTION jet_format_fecha(x timestamp, mascara text) RETURNS text LANGUAGE plpgsql STABLE PARALLEL SAFE AS $$
DECLARE m text COLLATE "C" := lower(coalesce(mascara, '')); r text COLLATE "C" := ''; i integer := 1; t text COLLATE "C";
  hora boolean := false;
  meses text[] := ARRAY['enero','febrero','marzo','abril','mayo','junio','julio','agosto','septiembre','octubre','noviembre','diciembre'];
  dias text[] := ARRAY['domingo','lunes','martes','miércoles','jueves','viernes','sábado'];
BEGIN
  IF x IS NULL THEN RETURN ''; END IF;
  IF m = '' OR m = 'general date' THEN RETURN jet_str_fecha(x); END IF;
  IF m = 'long date' THEN
    RETURN dias[extract(dow FROM x)::int + 1] || ', ' || extract(day FROM x)::int || ' de ' || meses[extract(month FROM x)::int]
           || ' de ' || extract(year FROM x)::int;
  END IF;
  IF m = 'short date' THEN RETURN to_char(x, 'DD/MM/YYYY'); END IF;
  IF m IN ('long time', 'medium time') THEN RETURN to_char(x, 'HH24:MI:SS'); END IF;
  IF m = 'short time' THEN RETURN to_char(x, 'HH24:MI'); END IF;
  WHILE i <= length(m) LOOP
    t := substring(substr(m, i) FROM '^(dddd|ddd|dd|d|mmmm|mmm|mm|m|yyyy|yy|hh|h|nn|n|ss|s)');
    IF t IS NULL THEN r := r || substr(mascara, i, 1); i := i + 1; CONTINUE; END IF;
    r := r || CASE
      WHEN t = 'dddd' THEN dias[extract(dow FROM x)::int + 1]
      WHEN t = 'ddd' THEN left(dias[extract(dow FROM x)::int + 1], 3)
      WHEN t = 'dd' THEN to_char(x, 'DD') WHEN t = 'd' THEN extract(day FROM x)::int::text
      WHEN t IN ('mm', 'm') AND hora THEN CASE WHEN t = 'mm' THEN to_char(x, 'MI') ELSE extract(minute FROM x)::int::text END
      WHEN t = 'mmmm' THEN meses[extract(month FROM x)::int]
      WHEN t = 'mmm' THEN left(meses[extract(month FROM x)::int], 3)
      WHEN t = 'mm' THEN to_char(x, 'MM') WHEN t = 'm' THEN extract(month FROM x)::int::text
      WHEN t = 'yyyy' THEN to_char(x, 'YYYY') WHEN t = 'yy' THEN to_char(x, 'YY')
      WHEN t = 'hh' THEN to_char(x, 'HH24') WHEN t = 'h' THEN extract(hour FROM x)::int::text
      WHEN t = 'nn' THEN to_char(x, 'MI') WHEN t = 'n' THEN extract(minute FROM x)::int::text
      WHEN t = 'ss' THEN to_char(x, 'SS') ELSE floor(extract(second FROM x))::int::text END;
    hora := t IN ('hh', 'h');
    i := i + length(t);
  END LOOP;
  RETURN r;
END $$;
CREATE OR REPLACE FUNCTION jet_format_num(x numeric, texto text, mascara text) RETURNS text LANGUAGE plpgsql IMMUTABLE PARALLEL SAFE AS $$
DECLARE m text COLLATE "C" := coalesce(mascara, ''); inicio integer; fin integer; cuerpo text COLLATE "C";
  antes text COLLATE "C"; despues text COLLATE "C"; punto integer; decimales integer; minimo integer; grupos boolean;
  r numeric; entera text COLLATE "C"; fraccion text COLLATE "C";
BEGIN
  IF x IS NULL THEN RETURN ''; END IF;
  IF lower(m) IN ('fixed', 'standard', 'currency') THEN
    m := CASE lower(m) WHEN 'fixed' THEN '0.00' WHEN 'standard' THEN '#,##0.00' ELSE '$#,##0.00' END;
  END IF;
  inicio := strpos(translate(m, '#,.', '000'), '0');
  IF m = '' OR lower(m) = 'general number' OR inicio = 0 THEN RETURN texto; END IF;
  fin := length(m) - strpos(reverse(translate(m, '#,.', '000')), '0') + 1;
  antes := left(m, inicio - 1); cuerpo := substr(m, inicio, fin - inicio + 1); despues := substr(m, fin + 1);
  punto := strpos(cuerpo, '.');
  decimales := CASE WHEN punto = 0 THEN 0 ELSE length(substr(cuerpo, punto + 1)) - length(replace(replace(substr(cuerpo, punto + 1), '0', ''), '#', '')) END;
  minimo := length(CASE WHEN punto = 0 THEN cuerpo ELSE left(cuerpo, punto - 1) END)
            - length(replace(CASE WHEN punto = 0 THEN cuerpo ELSE left(cuerpo, punto - 1) END, '0', ''));
  grupos := strpos(cuerpo, ',') > 0;
  r := round(abs(x), decimales);
  entera := trunc(r)::text;
  IF entera = '0' AND minimo = 0 THEN entera := ''; END IF;
  entera := lpad(entera, greatest(minimo, length(entera)), '0');
  IF grupos THEN
    entera := reverse(regexp_replace(reverse(entera), '(\d{3})(?=\d)', '\1,', 'g'));
  END IF;
  fraccion := CASE WHEN decimales > 0 THEN '.' || substr(to_char(r - trunc(r), 'FM0.' || repeat('0', decimales)), 3) ELSE '' END;
  RETURN CASE WHEN x < 0 AND r <> 0 THEN '-' ELSE '' END || antes || entera || fraccion || despues;
END $$;
CREATE OR REPLACE FUNCTION jet_format_texto(x text, mascara text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS
  $$SELECT coalesce(x, '')$$;

-- The write-time conversion of a value to its field: required (3314), too long (3163), zero length (3315),
-- beyond the type's range (3349). The descriptions come written by the generator, field name and all.
CREATE OR REPLACE FUNCTION jet_a_texto(x text, tamano integer, requerido boolean, longitud_cero boolean,
                                       falta text, largo text, vacio text) RETURNS text LANGUAGE sql VOLATILE PARALLEL SAFE AS $$
  SELECT CASE WHEN x IS NULL THEN CASE WHEN requerido THEN jet_falla(3314, falta, NULL::text) END
              WHEN tamano > 0 AND length(x) > tamano THEN jet_falla(3163, largo, NULL::text)
              WHEN x = '' AND NOT longitud_cero THEN jet_falla(3315, vacio, NULL::text)
              ELSE x END $$;
CREATE OR REPLACE FUNCTION jet_a_moneda(x numeric, requerido boolean, falta text, desborde text) RETURNS numeric
LANGUAGE sql VOLATILE PARALLEL SAFE AS $$
  SELECT CASE WHEN x IS NULL THEN CASE WHEN requerido THEN jet_falla(3314, falta, NULL::numeric) END
              WHEN x NOT BETWEEN -9223372036854775808 AND 9223372036854775807 THEN jet_falla(3349, desborde, NULL::numeric)
              ELSE round(x / 10000, 4) END $$;
CREATE OR REPLACE FUNCTION jet_a_fecha(x timestamp, requerido boolean, falta text) RETURNS timestamp(0)
LANGUAGE sql VOLATILE PARALLEL SAFE AS $$
  SELECT CASE WHEN x IS NULL AND requerido THEN jet_falla(3314, falta, NULL::timestamp(0)) ELSE x::timestamp(0) END $$;
CREATE OR REPLACE FUNCTION jet_a_binario(x bytea, requerido boolean, falta text) RETURNS bytea
LANGUAGE sql VOLATILE PARALLEL SAFE AS $$
  SELECT CASE WHEN x IS NULL AND requerido THEN jet_falla(3314, falta, NULL::bytea) ELSE x END $$;
CREATE OR REPLACE FUNCTION jet_a_sino(x double precision, requerido boolean, falta text) RETURNS smallint
LANGUAGE sql VOLATILE PARALLEL SAFE AS $$
  SELECT CASE WHEN x IS NULL THEN CASE WHEN requerido THEN jet_falla(3314, falta, NULL::smallint) END
              WHEN x <> 0 THEN -1::smallint ELSE 0::smallint END $$;
CREATE OR REPLACE FUNCTION jet_a_entero(x double precision, minimo double precision, maximo double precision,
                                        requerido boolean, falta text, desborde text) RETURNS integer
LANGUAGE sql VOLATILE PARALLEL SAFE AS $$
  SELECT CASE WHEN x IS NULL THEN CASE WHEN requerido THEN jet_falla(3314, falta, NULL::integer) END
              WHEN round(x) BETWEEN minimo AND maximo THEN round(x)::integer
              ELSE jet_falla(3349, desborde, NULL::integer) END $$;
CREATE OR REPLACE FUNCTION jet_a_real(x double precision, requerido boolean, falta text) RETURNS double precision
LANGUAGE sql VOLATILE PARALLEL SAFE AS $$
  SELECT CASE WHEN x IS NULL AND requerido THEN jet_falla(3314, falta, NULL::double precision) ELSE x END $$;

-- AutoNumber: a row written with its own number pushes the counter past it, once per statement.
-- TG_ARGV: the counter's column.
CREATE OR REPLACE FUNCTION jet_contador() RETURNS trigger LANGUAGE plpgsql AS $$
DECLARE maximo bigint; secuencia text;
BEGIN
  secuencia := pg_get_serial_sequence(format('%I.%I', TG_TABLE_SCHEMA, TG_TABLE_NAME), TG_ARGV[0]);
  EXECUTE format('SELECT max(%I) FROM nuevas', TG_ARGV[0]) INTO maximo;
  IF maximo > coalesce(pg_sequence_last_value(secuencia::regclass), 0) THEN
    PERFORM setval(secuencia::regclass, maximo);
  END IF;
  RETURN NULL;
END $$;
RESET check_function_bodies;
)SQL";

}  // namespace

int VersionFuncionesPostgres() { return Version; }

const QString& ScriptFuncionesPostgres() {
    static const QString script = [] {
        QString s = QString::fromUtf8(Cuerpo);
        s.replace(QLatin1String("@VERSION@"), QString::number(Version));
        for (const int n : {ErrTiposNoCoinciden, ErrSintaxisExpresion, ErrRecursosExcedidos}) {
            QString d = DescripcionError(n);
            d.replace(u'\'', QLatin1String("''"));
            s.replace(QStringLiteral("@E%1@").arg(n), d);
        }
        return s;
    }();
    return script;
}

}  // namespace jet
