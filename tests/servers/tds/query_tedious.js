// Asks a server by the independent client "tedious": node query_tedious.js MODULES PORT STATEMENT...
// Prints one line of JSON for each statement: its rows, or the error's number.
const [modules, port, ...statements] = process.argv.slice(2);
const { Connection, Request } = require(modules + '/tedious');

const connection = new Connection({
  server: '127.0.0.1',
  authentication: { type: 'default', options: { userName: 'vorta', password: 'vorta' } },
  options: { port: Number(port), database: 'VORTA', encrypt: false, trustServerCertificate: true, connectTimeout: 5000,
             rowCollectionOnRequestCompletion: true },
});

function next() {
  const statement = statements.shift();
  if (statement === undefined) return connection.close();
  connection.execSqlBatch(new Request(statement, (error, count, rows) => {
    if (error) console.log(JSON.stringify({ error: error.number ?? error.code, state: error.state }));
    else console.log(JSON.stringify({ count, rows: rows.map(row => row.map(cell => cell.value)), names: rows[0]?.map(c => c.metadata.colName) }));
    next();
  }));
}

// A lost connection is told to the request that meets it; the event itself says nothing more.
connection.on('error', () => {});
connection.on('connect', error => {
  if (error) {
    console.log(JSON.stringify({ login: error.message }));
    process.exit(0);
  }
  next();
});
connection.connect();
