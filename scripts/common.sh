# Shared by the scripts beside it, which source it.
root=$(dirname "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")")
cd "$root"

# configure FOLDER [CMAKE-OPTIONS...]
configure()
{
    local folder=$1
    shift
    cmake -S . -B "$folder" -G Ninja --log-level=WARNING "$@"
}

# build FOLDER [TARGET]; KELMO_JOBS limits the compilers that run at once
build()
{
    cmake --build "$1" --target "${2:-all}" --parallel "${KELMO_JOBS:-$(nproc)}"
}
