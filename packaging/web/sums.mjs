// Writes into the service worker of a folder what the files are that it keeps.
// Usage: node sums.mjs FOLDER
import { createHash } from "node:crypto";
import { readFile, writeFile } from "node:fs/promises";
import { join } from "node:path";
import { pathToFileURL } from "node:url";

export async function writeSums(folder) {
    const file = join(folder, "worker.js");
    let worker = await readFile(file, "utf8");
    for (const [line, name] of worker.matchAll(/^ {4}"(.*)": ".*",$/gm)) {
        const content = await readFile(join(folder, name || "index.html"));
        worker = worker.replace(line, `    "${name}": "${createHash("sha256").update(content).digest("hex")}",`);
    }
    await writeFile(file, worker);
}

if (import.meta.url === pathToFileURL(process.argv[1]).href) {
    await writeSums(process.argv[2]);
}
