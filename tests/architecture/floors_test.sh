#!/usr/bin/env bash
# floors_test.sh ROOT: fails on any include that climbs from a lower floor of src/ to a higher one, and on any that
# names no floor at all.
set -euo pipefail
cd "$1"
floors=(foundation language registry evaluator values inspectors client console)

# Which floors each may include beside itself.  "support" is what stands beside src/: the declarations that the program
# shares with the libraries that it opens when it runs.
declare -A below=(
    [foundation]=""
    [language]="foundation"
    [registry]="foundation"
    [evaluator]="foundation language registry"
    [values]="foundation language registry evaluator"
    [inspectors]="foundation language registry evaluator values support"
    [client]="foundation language registry evaluator values inspectors"
    [console]="foundation language registry evaluator values inspectors client"
)

failed=0
seen=0
for floor in "${floors[@]}"; do
    [ -d "src/$floor" ] || continue
    while IFS=: read -r file line include; do
        seen=$((seen + 1))
        target=${include#*\"}
        target=${target%%/*}
        case " $floor ${below[$floor]} " in
            *" $target "*) ;;
            *)
                echo "$file:$line: $floor may not include $target"
                failed=1
                ;;
        esac
    done < <(grep -rnE '^ *# *include "' "src/$floor")
done
[ "$seen" -gt 100 ] || { echo "only $seen includes were found: this test is looking in the wrong place"; exit 1; }
for folder in src/*/; do
    case " ${floors[*]} " in
        *" $(basename "$folder") "*) ;;
        *) echo "$folder is no floor of the house"; failed=1 ;;
    esac
done
exit $failed
