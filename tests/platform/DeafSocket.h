// One end of a connection that no longer hears anything: what a pulled cable or a lost radio network is to the other
// end.
#pragma once

#include <linux/filter.h>
#include <sys/socket.h>

// From now on the system throws away whatever comes for this connected socket before anybody sees it, acknowledgements
// and the system's own knocks included, and so answers nothing; false where the system does not offer that.
inline bool deafen(int descriptor) {
    sock_filter dropAll{BPF_RET | BPF_K, 0, 0, 0};
    const sock_fprog program{1, &dropAll};
    return ::setsockopt(descriptor, SOL_SOCKET, SO_ATTACH_FILTER, &program, sizeof program) == 0;
}
