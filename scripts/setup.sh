# Shared by ./run, ./test and ./bench: packages, builds, an X server. Source this file; do not run it.

BUILD_PACKAGES=(g++ cmake ninja-build ccache pkg-config libsqlitecpp-dev libsqlite3-dev libpugixml-dev libboost-dev
  libspdlog-dev libsodium-dev libzint-dev unixodbc-dev)
SERVER_PACKAGES=(odbc-postgresql tdsodbc)
POSTGRESQL=/usr/lib/postgresql/15/bin
TEST_PACKAGES=(libgtest-dev libgmock-dev)
VIEW_PACKAGES=(qt6-base-dev qt6-svg-dev libqt6svg6 fonts-inter)
DESIGNER_PACKAGES=(qt6-tools-dev libqt6opengl6-dev)
DESKTOP_PACKAGES=(xvfb openbox xdotool x11-utils)
LABEL_PACKAGES=(libzbar-dev libzxing-dev poppler-utils fonts-dejavu-core)
BUS_PACKAGES=(dbus-daemon)
ACCESS_PACKAGES=(at-spi2-core python3-pyatspi "${BUS_PACKAGES[@]}")
BENCH_PACKAGES=(libbenchmark-dev)
FUZZ_PACKAGES=(clang libclang-rt-14-dev)
STYLE_PACKAGES=(clang-format git)
TIDY_PACKAGES=(clang-tidy)
PACKAGE_PACKAGES=(dpkg-dev file desktop-file-utils appstream mandoc)
REFERENCE_PACKAGES=(doxygen)

log_directory=build/log

# Installs those of the named packages that are missing.
install_packages() {
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  local as_root=()
  [ "$(id -u)" -eq 0 ] || as_root=(sudo)
  mkdir -p "$log_directory"
  echo "Installing: ${missing[*]}"
  if ! { "${as_root[@]}" apt-get update && "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
      apt-get install -y --no-install-recommends "${missing[@]}"; } >"$log_directory/packages.log" 2>&1; then
    tail -n 20 "$log_directory/packages.log" >&2
    echo "These packages could not be installed: ${missing[*]}" >&2
    return 1
  fi
  rm -f build/*/build.ninja  # configure again: optional packages may have been missing
}

# build PRESET [-DOPTION=ON...] [TARGET...]: configures if needed and builds. Prints only errors. An option that is on
# in a build folder stays on, so that the commands can share the folder.
build() {
  local preset=$1 option configure=false
  shift
  local options=() targets=()
  while [[ ${1:-} == -D* ]]; do
    option=${1#-D}
    options+=("$1")
    grep -qxE "${option%%=*}(:[A-Z]+)?=${option#*=}" "build/$preset/CMakeCache.txt" 2>/dev/null || configure=true
    shift
  done
  [ -f "build/$preset/build.ninja" ] || configure=true
  [ $# -eq 0 ] || targets=(--target "$@")
  mkdir -p "$log_directory"
  local log=$log_directory/build-$preset.log
  if $configure; then
    # Not with the preset again: its variables would switch off what another command has switched on.
    if [ -f "build/$preset/CMakeCache.txt" ]; then
      cmake "${options[@]}" -S . -B "build/$preset" >"$log" 2>&1
    else
      cmake --preset "$preset" -DBUILD_TESTING=OFF "${options[@]}" >"$log" 2>&1
    fi || { cat "$log" >&2; return 1; }
  fi
  if ! cmake --build "build/$preset" "${targets[@]}" >"$log" 2>&1; then
    grep -E -A 5 'error|FAILED|undefined reference' "$log" | head -n 80 >&2 || tail -n 40 "$log" >&2
    echo "The build failed. See $log." >&2
    return 1
  fi
}

# build_package: the Debian package of the reference host, in build/package.
build_package() {
  build default quellbrook quellbrook-model quellbrook-host quellbrook_manual || return 1
  rm -rf build/package
  local log=$log_directory/package.log
  cpack --config build/default/CPackConfig.cmake -B "$PWD/build/package" >"$log" 2>&1 || { cat "$log" >&2; return 1; }
}

# with_x_server COMMAND...: runs it on a new Xvfb with a window manager, with scratch directories for HOME and the
# desktop's folders. The caller's display and files are not touched.
with_x_server() {
  local scratch display_file display status=0
  scratch=$(mktemp -d)
  display_file=$scratch/display
  mkdir -p "$scratch/home" "$scratch/runtime"
  chmod 700 "$scratch/runtime"
  Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp -noreset 3>"$display_file" 2>"$scratch/xvfb.log" &
  local server=$!
  local tries=0
  until [ -s "$display_file" ]; do
    tries=$((tries + 1))
    if [ $tries -gt 200 ] || ! kill -0 $server 2>/dev/null; then
      cat "$scratch/xvfb.log" >&2
      echo "The X server did not start." >&2
      rm -rf "$scratch"
      return 1
    fi
    sleep 0.05
  done
  display=:$(cat "$display_file")
  local environment=(env -u WAYLAND_DISPLAY -u DBUS_SESSION_BUS_ADDRESS DISPLAY="$display" HOME="$scratch/home"
    XDG_CONFIG_HOME="$scratch/home/.config" XDG_DATA_HOME="$scratch/home/.local/share"
    XDG_CACHE_HOME="$scratch/home/.cache" XDG_RUNTIME_DIR="$scratch/runtime" QT_QPA_PLATFORM=xcb)
  "${environment[@]}" openbox --sm-disable >"$scratch/openbox.log" 2>&1 &
  local manager=$!
  # A window that opens before the manager runs never receives its position.
  tries=0
  until "${environment[@]}" xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'; do
    tries=$((tries + 1))
    if [ $tries -gt 200 ] || ! kill -0 $manager 2>/dev/null; then
      cat "$scratch/openbox.log" >&2
      echo "The window manager did not start." >&2
      kill $manager $server 2>/dev/null || true
      wait $manager $server 2>/dev/null || true
      rm -rf "$scratch"
      return 1
    fi
    sleep 0.05
  done
  "${environment[@]}" "$@" || status=$?
  kill $manager $server 2>/dev/null || true
  wait $manager $server 2>/dev/null || true
  rm -rf "$scratch"
  return $status
}

# install_postgresql: installs the programs of the server. The package would also create and start a cluster of its own;
# it is told not to.
install_postgresql() {
  [ -x "$POSTGRESQL/postgres" ] && return 0
  local as_root=()
  [ "$(id -u)" -eq 0 ] || as_root=(sudo)
  install_packages postgresql-common || return 1
  local settings=/etc/postgresql-common/createcluster.conf status=0
  "${as_root[@]}" cp -p $settings $settings.saved
  echo 'create_main_cluster = false' | "${as_root[@]}" tee -a $settings >/dev/null
  install_packages postgresql-15 || status=1
  "${as_root[@]}" mv $settings.saved $settings
  return $status
}

# serve_postgresql SCRATCH PORT [COMMAND...]: runs a server on the cluster in SCRATCH through the command. While SCRATCH
# has the file "restarts", a server that ends starts again.
serve_postgresql() {
  local scratch=$1 port=$2
  shift 2
  cd "$scratch"
  while
    "$@" "$POSTGRESQL/postgres" -D "$scratch/data" -h 127.0.0.1 -p "$port" -k "$scratch" -c fsync=off \
      -c wal_writer_delay=10s -c max_connections=100 >>"$scratch/log" 2>&1 || true
    [ -e "$scratch/restarts" ]
  do
    sleep 0.1
  done
}

# with_postgresql COMMAND...: runs it with a PostgreSQL cluster of its own, on loopback and in a scratch folder. Sets
# PGHOST, PGPORT, PGUSER and PGPASSWORD for the tools, SERVER_ODBC, a connection string without a database, and
# SERVER_DATA, the folder of the cluster. A server that the command stops starts again. A server does not run as root,
# so that root starts it as the package's account. If POSTGRESQL_FOLDER is set, the cluster is in that folder and is
# kept there for the next call.
with_postgresql() {
  local scratch as_account=() status=0 port server="" tries
  scratch=${POSTGRESQL_FOLDER:-$(mktemp -d)}
  export PGHOST=127.0.0.1 PGUSER=quellbrook PGPASSWORD
  mkdir -p "$scratch"
  [ -f "$scratch/password" ] ||
    (umask 077 && od -An -N16 -tx1 /dev/urandom | tr -d ' \n' >"$scratch/password")
  PGPASSWORD=$(cat "$scratch/password")
  rm -f "$scratch/restarts"
  if [ "$(id -u)" -eq 0 ]; then
    as_account=(setpriv --reuid=postgres --regid=postgres --clear-groups)
    chown -R postgres:postgres "$scratch"
  fi
  if [ ! -f "$scratch/data/PG_VERSION" ] &&
    ! (cd "$scratch" && "${as_account[@]}" "$POSTGRESQL/initdb" -D "$scratch/data" -U "$PGUSER" --encoding=UTF8 \
      --locale=C.UTF-8 --auth=scram-sha-256 --pwfile="$scratch/password" --no-sync) >"$scratch/log" 2>&1; then
    cat "$scratch/log" >&2
    rm -rf "$scratch"
    return 1
  fi
  # The port may be taken.
  for tries in 1 2 3 4 5; do
    port=$((20000 + RANDOM % 12000))
    serve_postgresql "$scratch" $port "${as_account[@]}" &
    server=$!
    until [ -z "$server" ] || "$POSTGRESQL/pg_isready" -q -p $port; do
      kill -0 $server 2>/dev/null || server=""
      sleep 0.1
    done
    [ -z "$server" ] || break
  done
  if [ -z "$server" ]; then
    cat "$scratch/log" >&2
    rm -rf "$scratch"
    return 1
  fi
  export PGPORT=$port
  touch "$scratch/restarts"
  SERVER_ODBC="Driver=PostgreSQL Unicode;Server=127.0.0.1;Port=$port;Uid=$PGUSER;Pwd=$PGPASSWORD" \
    SERVER_DATA="$scratch/data" "$@" || status=$?
  rm "$scratch/restarts"
  kill -INT "$(head -n 1 "$scratch/data/postmaster.pid" 2>/dev/null)" 2>/dev/null || true
  wait $server 2>/dev/null || true
  [ -n "${POSTGRESQL_FOLDER:-}" ] || rm -rf "$scratch"
  return $status
}
