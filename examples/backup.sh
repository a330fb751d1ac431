#!/usr/bin/env bash
# Packs folders into dated archives and keeps the newest few of them.
# Nothing outside the target folder is ever changed.
set -euo pipefail

readonly program=${0##*/}
target=${BACKUP_DIR:-}
keep=5
verbose=false

usage() {
  cat <<EOF
Usage: $program [-k COUNT] [-t FOLDER] [-v] FOLDER...

  -k COUNT   how many archives of each folder to keep (default: $keep)
  -t FOLDER  where the archives go (default: a new temporary folder)
  -v         say what is done

It's safe to run this twice a day; archives of the same minute are replaced.
EOF
}

say() {
  if [[ $verbose == true ]]; then
    printf '%s: %s\n' "$program" "$*" >&2
  fi
}

fail() {
  printf '%s: error: %s\n' "$program" "$1" >&2
  exit "${2:-1}"
}

# Removes all but the newest archives whose names begin with $1.
prune() {
  local prefix=$1 count=0 archive
  while IFS= read -r archive; do
    count=$((count + 1))
    if [ "$count" -gt "$keep" ]; then
      say "removing $archive"
      rm -f -- "$archive"
    fi
  done < <(find "$target" -maxdepth 1 -type f -name "$prefix-*.tar.gz" | sort -r)
}

pack() {
  local folder=${1%/} name archive
  name=$(basename "$folder")
  archive="$target/$name-$(date +%Y%m%d-%H%M).tar.gz"

  say "packing $folder"
  tar -czf "$archive.part" -C "$(dirname "$folder")" "$name"
  mv -f "$archive.part" "$archive"
  prune "$name"
  printf '%8s  %s\n' "$(du -h "$archive" | cut -f 1)" "$archive"
}

while getopts ":k:t:vh" option; do
  case $option in
    k) keep=$OPTARG ;;
    t) target=$OPTARG ;;
    v) verbose=true ;;
    h)
      usage
      exit 0
      ;;
    *) fail "unknown option, try -h" 2 ;;
  esac
done
shift $((OPTIND - 1))

[[ $keep =~ ^[1-9][0-9]*$ ]] || fail "not a count: $keep" 2
if [ $# -eq 0 ]; then
  usage
  exit 2
fi

if [ -z "$target" ]; then
  target=$(mktemp -d)
fi
mkdir -p "$target"
trap 'rm -f "$target"/*.part' EXIT

for folder in "$@"; do
  if [ ! -d "$folder" ] || [ ! -r "$folder" ]; then
    fail "not a folder that can be read: $folder"
  fi
  pack "$folder"
done
