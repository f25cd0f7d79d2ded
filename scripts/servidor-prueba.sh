#!/bin/sh
# A throw-away PostgreSQL 15 server for the tests, in a temporary folder, that nothing else uses:
#
#   sh scripts/servidor-prueba.sh start          starts one and prints, for eval, the two variables
#                                                 ADQ_PRUEBA_SERVIDOR (its URI) and ADQ_SERVIDOR_PRUEBA_DIR
#   sh scripts/servidor-prueba.sh stop [CARPETA]  stops it and removes its folder (ADQ_SERVIDOR_PRUEBA_DIR)
#   sh scripts/servidor-prueba.sh exec ORDEN...   starts one, runs ORDEN with ADQ_PRUEBA_SERVIDOR set, and
#                                                 stops it whatever happens; ends as ORDEN ended
#
# The cluster is made by initdb as an unprivileged user (the postgres server refuses to run as root: as
# root a system user "adqpg" is made if there is none), answers on 127.0.0.1 only, on a free port other
# than 5432, and on a unix socket in its own folder, so that a Debian cluster running or not makes no
# difference. Loopback connections are trusted; the superuser role "adqpg" is the one the tests use. It
# never writes to disk more than it must (fsync, synchronous_commit and full_page_writes off): its data is
# thrown away with it.
set -e

USUARIO_PG=adqpg
ROL=adqpg

Binarios() {
  if [ -x /usr/lib/postgresql/15/bin/initdb ]; then
    echo /usr/lib/postgresql/15/bin
  elif command -v pg_config >/dev/null 2>&1 && [ -x "$(pg_config --bindir)/initdb" ]; then
    pg_config --bindir
  else
    echo "No se encontró initdb de PostgreSQL 15 (paquete postgresql)." >&2
    exit 1
  fi
}

# Runs a command as the cluster's owner: as root, the unprivileged user; otherwise, oneself.
ComoDueno() {
  if [ "$(id -u)" -eq 0 ]; then
    runuser -u "$USUARIO_PG" -- "$@"
  else
    "$@"
  fi
}

AseguraUsuario() {
  [ "$(id -u)" -eq 0 ] || return 0
  id -u "$USUARIO_PG" >/dev/null 2>&1 && return 0
  useradd --system --no-create-home --home-dir /nonexistent --shell /usr/sbin/nologin "$USUARIO_PG" ||
    id -u "$USUARIO_PG" >/dev/null 2>&1   # another run may have made it meanwhile
}

Inicia() {
  BIN=$(Binarios)
  AseguraUsuario
  DIR=$(mktemp -d "${TMPDIR:-/tmp}/adq-servidor-prueba.XXXXXX")
  chmod 755 "$DIR"
  mkdir "$DIR/datos"
  [ "$(id -u)" -eq 0 ] && chown "$USUARIO_PG" "$DIR" "$DIR/datos"
  if ! ComoDueno "$BIN/initdb" -D "$DIR/datos" -U "$ROL" -E UTF8 --locale=C.UTF-8 --auth=trust --no-sync \
      >"$DIR/initdb.log" 2>&1; then
    cat "$DIR/initdb.log" >&2
    rm -rf "$DIR"
    exit 1
  fi
  # Trust on loopback and on the folder's own socket, nothing else.
  cat >"$DIR/datos/pg_hba.conf" <<EOF
local all all trust
host all all 127.0.0.1/32 trust
EOF
  cat >>"$DIR/datos/postgresql.conf" <<EOF
listen_addresses = '127.0.0.1'
unix_socket_directories = '$DIR'
max_connections = 100
fsync = off
synchronous_commit = off
full_page_writes = off
wal_level = minimal
max_wal_senders = 0
shared_buffers = 64MB
autovacuum = off
log_min_messages = warning
EOF
  # A free port: one the server manages to bind, tried from a number of this process's own (or from
  # ADQ_SERVIDOR_PRUEBA_PUERTO), never 5432.
  PUERTO=${ADQ_SERVIDOR_PRUEBA_PUERTO:-$((20000 + $$ % 30000))}
  intento=0
  while :; do
    [ "$PUERTO" -eq 5432 ] && PUERTO=$((PUERTO + 1))
    if ComoDueno "$BIN/pg_ctl" -D "$DIR/datos" -l "$DIR/servidor.log" -o "-p $PUERTO" -w -t 60 start >/dev/null 2>&1; then
      break
    fi
    intento=$((intento + 1))
    if [ "$intento" -ge 20 ] || ! grep -q -i -e "could not bind" -e "already in use" -e "could not create lock file" "$DIR/servidor.log" 2>/dev/null; then
      echo "No se pudo iniciar el servidor de prueba:" >&2
      cat "$DIR/servidor.log" >&2 2>/dev/null || true
      ComoDueno "$BIN/pg_ctl" -D "$DIR/datos" -m immediate stop >/dev/null 2>&1 || true
      rm -rf "$DIR"
      exit 1
    fi
    PUERTO=$((PUERTO + 7))
  done
  echo "$PUERTO" >"$DIR/puerto"
  echo "ADQ_PRUEBA_SERVIDOR=postgresql://$ROL@127.0.0.1:$PUERTO/postgres; export ADQ_PRUEBA_SERVIDOR"
  echo "ADQ_SERVIDOR_PRUEBA_DIR=$DIR; export ADQ_SERVIDOR_PRUEBA_DIR"
}

Detiene() {
  DIR=${1:-$ADQ_SERVIDOR_PRUEBA_DIR}
  [ -n "$DIR" ] && [ -d "$DIR" ] || return 0
  # Only a folder this script made.
  case "$(basename "$DIR")" in adq-servidor-prueba.*) ;; *) echo "'$DIR' no es un servidor de prueba." >&2; return 1 ;; esac
  if [ -f "$DIR/datos/postmaster.pid" ]; then
    BIN=$(Binarios)
    ComoDueno "$BIN/pg_ctl" -D "$DIR/datos" -m immediate -w -t 30 stop >/dev/null 2>&1 || {
      # A server that won't stop: its postmaster, by the number it wrote.
      pid=$(head -n 1 "$DIR/datos/postmaster.pid" 2>/dev/null || true)
      [ -n "$pid" ] && kill -9 "$pid" 2>/dev/null || true
    }
  fi
  rm -rf "$DIR"
}

case "$1" in
start)
  Inicia
  ;;
stop)
  Detiene "$2"
  ;;
exec)
  shift
  [ $# -gt 0 ] || { echo "Uso: $0 exec ORDEN [ARGUMENTOS...]" >&2; exit 2; }
  # Started in this shell, so that the trap knows its folder from the moment it exists.
  DIR=
  trap 'Detiene "$DIR"' EXIT
  trap 'exit 130' INT
  trap 'exit 143' TERM
  trap 'exit 129' HUP
  Inicia >/dev/null
  ADQ_PRUEBA_SERVIDOR="postgresql://$ROL@127.0.0.1:$PUERTO/postgres"
  export ADQ_PRUEBA_SERVIDOR
  echo "Servidor de prueba: $ADQ_PRUEBA_SERVIDOR" >&2
  estado=0
  "$@" || estado=$?
  exit "$estado"
  ;;
*)
  echo "Uso: $0 start | stop [CARPETA] | exec ORDEN [ARGUMENTOS...]" >&2
  exit 2
  ;;
esac
