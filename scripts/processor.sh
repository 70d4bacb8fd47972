# A Windows program and Wine's server hand each call to and fro. Between two processors each hand-over has to wake the
# other one, which in a virtual machine takes many times as long as the call itself. So a program, its server and all
# that they start stay on one.
# shellcheck shell=bash

# stay_on_one_processor: the one that CTest has allotted to this test, number $PROCESSOR, or any.
stay_on_one_processor() {
    local number=${CTEST_RESOURCE_GROUP_0_PROCESSORS:-${PROCESSOR:-$RANDOM}} range processors=()
    number=${number#id:}
    number=${number%%,*}
    for range in $(taskset --cpu-list --pid $$ | sed 's/.*: //; s/,/ /g'); do
        mapfile -t -O "${#processors[@]}" processors < <(seq "${range%-*}" "${range#*-}")
    done
    taskset --cpu-list --pid "${processors[number % ${#processors[@]}]}" $$ >/dev/null
}
