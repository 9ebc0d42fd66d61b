// A server that hands out the files of a folder and nothing else, as any school has one. It counts the bytes that go
// over the wire, and can be stopped and started again at the same port.
import { createReadStream } from "node:fs";
import { stat } from "node:fs/promises";
import { createServer } from "node:http";
import { extname, join, normalize } from "node:path";

const signIn = `<!DOCTYPE html><title>Entrar</title>${"<p>Inicie sesión para continuar.</p>".repeat(60)}`;

const types = {
    ".html": "text/html; charset=utf-8",
    ".css": "text/css; charset=utf-8",
    ".js": "text/javascript; charset=utf-8",
    ".json": "application/json",
    ".webmanifest": "application/manifest+json",
    ".png": "image/png",
};

export class Server {
    // With `compressed`, as servers do that have been told so: what the browser takes with brotli goes as the .br beside it.
    constructor(root, { compressed = false } = {}) {
        this.root = root;
        this.compressed = compressed;
        this.port = 0; // any that is free; the same one ever after
        this.bytes = 0; // sent, heads included
        this.requests = [];
        this.failing = null; // a pattern of names that it has, but fails to give
        this.hanging = null; // of names to which it never answers
        this.guarded = null; // of names in whose place it sends a page that asks who it is...
        this.redirects = false; // ...or sends on to that
        this.encodesPacked = false; // it sends a .gz as what is packed in it, which the browser unpacks
        this.isOdd = false; // as some are: pages go by names without .html, and are said to vary with everything
    }

    async start() {
        this.sockets = new Set();
        this.http = createServer((request, response) => this.#answer(request, response));
        this.http.on("connection", socket => {
            this.sockets.add(socket);
            socket.once("close", () => {
                this.bytes += socket.bytesWritten;
                this.sockets.delete(socket);
            });
        });
        await new Promise((done, fail) => this.http.once("error", fail).listen(this.port, "127.0.0.1", done));
        this.port = this.http.address().port;
    }

    async stop() {
        const closed = new Promise(done => this.http.close(done)); // at once if it has been stopped already
        this.http.closeAllConnections();
        await closed;
    }

    origin(name = "127.0.0.1") {
        return `http://${name}:${this.port}`;
    }

    // So far, with what is still being sent.
    bytesSent() {
        return [...this.sockets].reduce((sum, socket) => sum + socket.bytesWritten, this.bytes);
    }

    async #answer(request, response) {
        const name = decodeURIComponent(new URL(request.url, "http://any").pathname);
        this.requests.push(name);
        if (this.hanging?.test(name)) {
            return;
        }
        if (this.failing?.test(name)) {
            response.writeHead(503).end();
            return;
        }
        const isGuarded = this.guarded?.test(name);
        if (isGuarded && this.redirects) {
            response.writeHead(302, { Location: "/entrar.html" }).end();
            return;
        }
        if (isGuarded || name === "/entrar.html") {
            response.writeHead(200, { "Content-Type": types[".html"] }).end(signIn);
            return;
        }
        if (this.isOdd && name.endsWith(".html")) {
            response.writeHead(308, { Location: request.url.replace(/(index)?\.html/, "") }).end();
            return;
        }
        let path = join(this.root, normalize(name));
        if (name.endsWith("/")) {
            path = join(path, "index.html");
        } else if (this.isOdd && extname(path) === "") {
            path += ".html";
        }
        const head = {
            "Content-Type": types[extname(path)] ?? "application/octet-stream",
            Vary: this.isOdd && extname(path) !== ".js" ? "*" : "Accept-Encoding", // Firefox takes no such worker
        };
        if (this.compressed && /\bbr\b/.test(request.headers["accept-encoding"]) && await sizeAndTime(path + ".br")) {
            path += ".br";
            head["Content-Encoding"] = "br";
        } else if (this.encodesPacked && path.endsWith(".gz")) {
            head["Content-Encoding"] = "gzip";
        }
        const file = await sizeAndTime(path);
        if (!file) {
            response.writeHead(404).end();
            return;
        }
        head["Last-Modified"] = new Date(file.mtimeMs).toUTCString();
        head.ETag = `"${file.size}-${file.mtimeMs}"`;
        if (request.headers["if-none-match"] === head.ETag) {
            response.writeHead(304, head).end();
            return;
        }
        head["Content-Length"] = file.size;
        response.writeHead(200, head);
        createReadStream(path).pipe(response);
    }
}

async function sizeAndTime(path) {
    const file = await stat(path).catch(() => null);
    return file?.isFile() ? file : null;
}
