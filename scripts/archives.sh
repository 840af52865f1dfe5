# Archives that are the same, byte for byte, whoever packs the same files and whenever. To be sourced.
# shellcheck shell=sh

# source_time: of the last change, in seconds since 1970, or what SOURCE_DATE_EPOCH says.
source_time() { echo "${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct 2>/dev/null || echo 1000000000)}"; }

# settle FOLDER: all in it may be read by everybody, and is as old as the last change.
settle()
{
    chmod -R u=rwX,go=rX "$1"
    find "$1" -exec touch -h -d "@$(source_time)" {} +
}

# zip_folder FOLDER ARCHIVE: with the folder's name in it.
zip_folder()
{
    settle "$1"
    zipped=$(realpath "$2")
    rm -f "$zipped"
    (cd "$(dirname "$1")" && find "$(basename "$1")" | LC_ALL=C sort | TZ=UTC zip -qX9 "$zipped" -@)
}

# tar_folder FOLDER ARCHIVE: the same, packed by xz.
tar_folder()
{
    settle "$1"
    tar -c -C "$(dirname "$1")" --format=gnu --sort=name --owner=root:0 --group=root:0 "$(basename "$1")" | xz -9e -T1 >"$2"
}
