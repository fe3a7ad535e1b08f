# The setting that a console of a build directory is started in: that of the example agent beside it.
# Sourced by shell scripts.

# in_example_agent CONSOLE: exports what the console finds its agent by, and nothing that leads elsewhere.
in_example_agent() {
    agent=$(dirname "$(dirname "$(realpath "$1")")")/agent
    export OSLClientConfigPath="$agent/client.conf" OSLClientActionMastheadPath="$agent/actionsite.aqzm"
    unset OSLRelayConfigPath OSL_LIBPATH
}
