// A MariaDB Galera cluster for tests and benchmarks: nodes of mariadbd on
// 127.0.0.1, each with its own data folder, client port, group port,
// incremental transfer (IST) port and full transfer (SST, rsync) port, all
// free ports, under a temp folder of their own.
//
// The first node starts a new cluster; the others join it one after the
// other, each by a full state transfer (rsync). When the test program runs
// as root the nodes run as the `mysql` user (rsync state transfer refuses to
// run as root), the folder being theirs. Every node runs in a process group
// of its own and dies with the thread that started it (also when the test
// program is killed); Stop and the destructor stop each node by its PID
// (SIGTERM, then SIGKILL of its group after a bounded wait) and remove the
// folder.
//
// Group settings for a test machine: a node that stops answering is
// suspected after 3 s (evs.suspect_timeout; the default is 5 s), so that
// the cluster goes on without a dead node about 3 to 4 s after its death.
// Commits are flushed to the log once a second
// (innodb_flush_log_at_trx_commit = 2): a commit is safe once the cluster
// has it. The buffer pool has the server's default size (128 MB; with
// 16 MB an import of 20,000 rows ran at half the speed, its pages written
// out again and again), the log 16 MB.
//
// Raises std::runtime_error when the cluster can not be set up or a node can
// not start or join in time.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace zaro_test {

class GaleraCluster {
public:
    // Whether this machine can run a cluster (the server, the Galera library,
    // rsync, and the mysql user when running as root); why not when not.
    static bool Available(std::string& why);

    // Starts a cluster of `nodes` nodes, each synced at the end.
    explicit GaleraCluster(int nodes = 3);
    ~GaleraCluster();
    GaleraCluster(const GaleraCluster&) = delete;
    GaleraCluster& operator=(const GaleraCluster&) = delete;

    int Size() const { return static_cast<int>(nodes_.size()); }
    // Node i's client port and its address "127.0.0.1:port".
    int Port(int i) const;
    std::string Address(int i) const;
    // "Server=a,b,c;User=root;Database=database" with the nodes in this order.
    std::string ConnectionString(const std::vector<int>& order, const std::string& database) const;
    // The node whose client port is port, or -1.
    int NodeOfPort(int port) const;

    // Kills a node at once (SIGKILL), as a crash would.
    void Kill(int i);
    // Starts a node that was killed or stopped again: it rejoins the cluster
    // (state transfer as needed). Returns at once; WaitSynced waits for it.
    void Start(int i);
    // Waits until the node answers and says Synced; raises after seconds.
    void WaitSynced(int i, double seconds);
    bool Running(int i) const;
    // Stops every node (SIGTERM, SIGKILL after a bounded wait).
    void Stop();

    // A status value of the node (SHOW GLOBAL STATUS), empty when it does not answer.
    std::string Status(int i, const std::string& name) const;
    const std::string& Folder() const { return dir_; }
    // The end of a node's error log, for messages.
    std::string LogTail(int i, size_t bytes = 3000) const;

private:
    struct Node {
        int port = 0, groupPort = 0, istPort = 0, sstPort = 0;
        std::string dataDir, errorLog;
        pid_t pid = -1;
    };
    void Launch(int i, bool bootstrap);
    void StopNode(int i, double seconds);
    std::string dir_;
    std::vector<Node> nodes_;
    unsigned uid_ = 0, gid_ = 0;  // the user the nodes run as
    bool switchUser_ = false;
};

}  // namespace zaro_test
