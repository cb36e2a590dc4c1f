# The page is clean to both formatters.
set -euo pipefail
said=$(mandoc -T lint -W style "$1" || true; groff -mandoc -ww -z "$1" 2>&1)
[[ -z $said ]] || { echo "$said"; exit 1; }
