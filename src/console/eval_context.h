// What the console lends to inspectors.
#ifndef CONSOLE_EVAL_CONTEXT_H
#define CONSOLE_EVAL_CONTEXT_H

#include "evaluator/inspector_context.h"
#include "evaluator/inspector_process_table_context.h"
#include "evaluator/inspector_site_context.h"

// Made on the entry's stack; lives until the query loop has ended.
class EvalContext final : public InspectorContext,
                          public InspectorStorageContext,
                          public InspectorSiteContext,
                          public InspectorLibraryContext,
                          public InspectorNetworkContext,
                          public OSLSettingsContext,
                          public CryptoInspectorContext,
                          public InspectorProcessTableContext {
public:
    // `host` is for the host's own use and is null in the console.
    explicit EvalContext(void* host) : host_(host) {}

    // Installs the console's functions; with `scanSites`, the sites in storage are known from then on.
    void SetUp(bool scanSites);

    void* Host() const { return host_; }

private:
    void* host_;
};

#endif
