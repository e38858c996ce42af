// SPDX-License-Identifier: MIT
// What someone would write instead: parses the ping and answers with a pong. Reads no file.
const { WebSocketServer } = require("ws");

const server = new WebSocketServer({ port: Number(process.argv[2]), perMessageDeflate: false });
server.on("connection", (socket) => {
  socket.on("message", (bytes) => {
    const message = JSON.parse(bytes);
    if (message.type === "ping") {
      const rtt = (Date.now() - Date.parse(message.payload.ts)) / 1000;
      socket.send(JSON.stringify({
        id: message.id,
        payload: { rtt, runningBundleIds: [], ts: message.payload.ts },
        type: "pong",
      }));
    }
  });
});
